#include "desktop/qt/qt_main_loop.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace panewright {

struct QtMainLoop::State {
    /// Callable from any thread.
    void post(std::function<void()> task) {
        const std::scoped_lock lock(mutex);
        tasks.push_back(std::move(task));
        if (!std::exchange(isWoken, true)) {
            QMetaObject::invokeMethod(
                &receiver, [this] { wokenUp(); }, Qt::QueuedConnection);
        }
    }

    void wokenUp() {
        {
            const std::scoped_lock lock(mutex);
            isWoken = false;
        }
        runTasks();
    }

    void runTasks() {
        while (const auto task = takeTask()) {
            task();
        }
    }

    /// Runs what a descriptor or a timer is watched for, and then at once what that has posted, so
    /// that a key press need not wait for another turn of the toolkit's loop.
    void handle(const std::function<void()>& callback) {
        const auto running = callback; // which may release its own registration, and so itself
        running();
        runTasks();
    }

    /// Empty when there is none.
    std::function<void()> takeTask() {
        const std::scoped_lock lock(mutex);
        std::function<void()> task;
        if (!tasks.empty()) {
            task = std::move(tasks.front());
            tasks.pop_front();
        }
        return task;
    }

    std::mutex mutex; // guards what was posted
    std::deque<std::function<void()>> tasks;
    /// Whether the toolkit has been asked to run the tasks and has not come to it yet.
    bool isWoken = false;
    /// Lives in the main thread, so what is invoked on it runs there, and dies with the loop, so
    /// nothing runs after it.
    QObject receiver;
    std::optional<int> exitCode;
};

QtMainLoop::QtMainLoop() : state_(std::make_unique<State>()) {}

QtMainLoop::~QtMainLoop() = default;

void QtMainLoop::post(std::function<void()> task) {
    state_->post(std::move(task));
}

Registration QtMainLoop::after(std::chrono::milliseconds delay, std::function<void()> task) {
    auto timer = std::make_shared<QTimer>();
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout,
                     [state = state_.get(), task = std::move(task)] { state->handle(task); });
    timer->start(delay);
    return Registration([timer] {
        timer->stop();
        // The release may come out of the timer's own signal.
        timer->disconnect();
    });
}

Registration QtMainLoop::whenReadable(int descriptor, std::function<void()> callback) {
    auto notifier = std::make_shared<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(
        notifier.get(), &QSocketNotifier::activated,
        [state = state_.get(), callback = std::move(callback)] { state->handle(callback); });
    return Registration([notifier] {
        notifier->setEnabled(false);
        notifier->disconnect();
    });
}

int QtMainLoop::run() {
    if (!state_->exitCode) {
        QCoreApplication::exec();
    }
    return state_->exitCode.value_or(0);
}

void QtMainLoop::quit(int exitCode) {
    if (!state_->exitCode) {
        state_->exitCode = exitCode;
    }
    QCoreApplication::exit(); // quit() asks the windows, and one that stays open refuses it
}

} // namespace panewright
