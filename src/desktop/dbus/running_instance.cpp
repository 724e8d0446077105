#include "desktop/dbus/running_instance.h"

#include "desktop/dbus/application_service.h"

#include <QDBusConnection>
#include <QDBusMessage>

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

bool activate(const QDBusConnection& bus, const std::string& identifier) {
    auto request = QDBusMessage::createMethodCall(QString::fromStdString(identifier),
                                                  QString::fromStdString(objectPathOf(identifier)),
                                                  "org.freedesktop.Application", "Activate");
    request << QVariantMap();
    request.setAutoStartService(false);
    const auto end = std::chrono::steady_clock::now() + kSlowestStart;
    for (;;) {
        const auto reply = bus.call(request, QDBus::Block, kAnswerTimeout);
        // What a name without an owner gives depends on the bus, and on whether it could be
        // started.
        const bool isMissing = reply.errorName() == "org.freedesktop.DBus.Error.ServiceUnknown" ||
                               reply.errorName() == "org.freedesktop.DBus.Error.NameHasNoOwner";
        if (!isMissing || std::chrono::steady_clock::now() >= end) {
            return reply.type() == QDBusMessage::ReplyMessage;
        }
        std::this_thread::sleep_for(kPause);
    }
}

} // namespace

std::optional<bool> activateRunningInstance(const std::string& identifier) {
    // On a thread of its own, as a bus may hang while one connects to it. It lets go of the
    // connection before it answers.
    auto isActivated = std::make_shared<std::promise<bool>>();
    auto answer = isActivated->get_future();
    std::thread asking([isActivated, identifier] {
        bool isDone = false;
        {
            const auto bus =
                QDBusConnection::connectToBus(QDBusConnection::SessionBus, kConnection);
            isDone = bus.isConnected() && activate(bus, identifier);
        }
        QDBusConnection::disconnectFromBus(kConnection);
        isActivated->set_value(isDone);
    });
    if (answer.wait_for(kPatience) != std::future_status::ready) {
        asking.detach();
        return std::nullopt;
    }
    asking.join();
    return answer.get();
}

} // namespace panewright
