#include "desktop/qt/qt_main_loop.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <optional>
#include <utility>

namespace panewright {

struct QtMainLoop::State {
    /// Lives in the main thread, so what is invoked on it runs there, and dies with the loop, so
    /// nothing runs after it.
    QObject receiver;
    std::optional<int> exitCode;
};

QtMainLoop::QtMainLoop() : state_(std::make_unique<State>()) {}

QtMainLoop::~QtMainLoop() = default;

void QtMainLoop::post(std::function<void()> task) {
    QMetaObject::invokeMethod(&state_->receiver, std::move(task), Qt::QueuedConnection);
}

Registration QtMainLoop::after(std::chrono::milliseconds delay, std::function<void()> task) {
    auto timer = std::make_shared<QTimer>();
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, [task = std::move(task)] {
        // The task may release its own registration, and with it this closure.
        const auto running = task;
        running();
    });
    timer->start(delay);
    return Registration([timer] {
        timer->stop();
        // The release may come out of the timer's own signal.
        timer->disconnect();
    });
}

Registration QtMainLoop::whenReadable(int descriptor, std::function<void()> callback) {
    auto notifier = std::make_shared<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [callback = std::move(callback)] {
        const auto running = callback;
        running();
    });
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
