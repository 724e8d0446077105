#include "desktop/dbus/running_instance.h"

#include "desktop/dbus/application_service.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>

#include <chrono>
#include <future>
#include <memory>
#include <thread>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// A program that has taken its store's lock has its bus name within this time.
constexpr auto kSlowestStart = 3s;
constexpr auto kPause = 50ms;
/// How long anybody waits for the bus and the program together.
constexpr auto kPatience = 5s;
constexpr int kAnswerTimeout = 3000; // ms

bool activate(const QDBusConnection& bus, const std::string& identifier) {
    auto request = QDBusMessage::createMethodCall(QString::fromStdString(identifier),
                                                  QString::fromStdString(objectPathOf(identifier)),
                                                  "org.freedesktop.Application", "Activate");
    request << QVariantMap();
    request.setAutoStartService(false);
    const auto end = std::chrono::steady_clock::now() + kSlowestStart;
    for (;;) {
        const auto reply = bus.call(request, QDBus::Block, kAnswerTimeout);
        const bool isMissing = QDBusError(reply).type() == QDBusError::ServiceUnknown;
        if (!isMissing || std::chrono::steady_clock::now() >= end) {
            return reply.type() == QDBusMessage::ReplyMessage;
        }
        std::this_thread::sleep_for(kPause);
    }
}

} // namespace

std::optional<bool> activateRunningInstance(const std::string& identifier) {
    // On a thread of its own, as a bus may hang while one connects to it.
    auto isActivated = std::make_shared<std::promise<bool>>();
    auto answer = isActivated->get_future();
    std::thread([isActivated, identifier] {
        const auto bus = QDBusConnection::sessionBus();
        isActivated->set_value(bus.isConnected() && activate(bus, identifier));
    }).detach();
    return answer.wait_for(kPatience) == std::future_status::ready ? std::optional(answer.get())
                                                                   : std::nullopt;
}

} // namespace panewright
