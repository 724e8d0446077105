#include "desktop/dbus/running_instance.h"

#include "desktop/dbus/application_service.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// A program that has taken its store's lock has finished launching, and has its bus name, within
/// this time.
constexpr auto kSlowestStart = 5s;
constexpr auto kPause = 50ms;
/// How long anybody waits for the bus and the program together.
constexpr auto kPatience = 9s;
constexpr int kAnswerTimeout = 3000; // ms
constexpr const char* kConnection = "second start";

/// Whether nobody has been asked: what a name without an owner gives depends on the bus, and on
/// whether it could be started. A program that is starting has no name yet, and one that is ending
/// no object any more.
bool isMissing(const QDBusMessage& reply) {
    static const QStringList kErrors{"org.freedesktop.DBus.Error.ServiceUnknown",
                                     "org.freedesktop.DBus.Error.NameHasNoOwner",
                                     "org.freedesktop.DBus.Error.UnknownObject"};
    return kErrors.contains(reply.errorName());
}

QDBusMessage callFor(InstanceRequest request, const std::string& identifier) {
    const auto callOf = [&](const char* interface, const char* method) {
        auto call = QDBusMessage::createMethodCall(QString::fromStdString(identifier),
                                                   QString::fromStdString(objectPathOf(identifier)),
                                                   interface, method);
        call.setAutoStartService(false);
        return call;
    };
    return request == InstanceRequest::kOpenItsWindow
               ? callOf("org.freedesktop.Application", "Activate") << QVariantMap()
               : callOf("org.freedesktop.DBus.Introspectable", "Introspect");
}

bool isAnswered(const QDBusConnection& bus, const QDBusMessage& call,
                const std::atomic<bool>& isStopped) {
    const auto end = std::chrono::steady_clock::now() + kSlowestStart;
    for (;;) {
        const auto reply = bus.call(call, QDBus::Block, kAnswerTimeout);
        if (!isMissing(reply) || isStopped || std::chrono::steady_clock::now() >= end) {
            return reply.type() == QDBusMessage::ReplyMessage;
        }
        std::this_thread::sleep_for(kPause);
    }
}

} // namespace

RunningInstance askRunningInstance(const std::string& identifier, InstanceRequest request,
                                   const std::function<bool()>& hasEnded) {
    // On a thread of its own, as a bus may hang while one connects to it. It lets go of the
    // connection before it answers.
    auto promise = std::make_shared<std::promise<bool>>();
    auto isStopped = std::make_shared<std::atomic<bool>>(false);
    auto answer = promise->get_future();
    std::thread([promise, isStopped, call = callFor(request, identifier)] {
        bool isDone = false;
        {
            const auto bus =
                QDBusConnection::connectToBus(QDBusConnection::SessionBus, kConnection);
            isDone = bus.isConnected() && isAnswered(bus, call, *isStopped);
        }
        QDBusConnection::disconnectFromBus(kConnection);
        promise->set_value(isDone);
    }).detach();
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end) {
        const bool isKnown = answer.wait_for(kPause) == std::future_status::ready;
        if (isKnown && answer.get()) {
            return RunningInstance::kAnswered;
        }
        if (hasEnded()) {
            *isStopped = true;
            return RunningInstance::kEnded;
        }
        if (isKnown) {
            return RunningInstance::kUnanswered;
        }
    }
    return RunningInstance::kBusHangs;
}

} // namespace panewright
