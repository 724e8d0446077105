#include "desktop/dbus/application_service.h"

#include <QDBusMessage>
#include <QDBusPendingCall>

#include <algorithm>
#include <utility>

namespace panewright {
namespace {

constexpr unsigned kDoNotQueue = 4; // D-Bus specification, "RequestName"

} // namespace

std::string objectPathOf(std::string identifier) {
    std::replace(identifier.begin(), identifier.end(), '.', '/');
    std::replace(identifier.begin(), identifier.end(), '-', '_');
    return '/' + identifier;
}

ApplicationService::ApplicationService(SessionBus& bus, std::string identifier)
    : bus_(bus), identifier_(std::move(identifier)), object_([this] { requested(); }),
      busKnown_(bus.onKnown([this] { publish(); })) {
    if (bus.connection()) {
        publish();
    }
}

/// Nothing waits for the bus: who asks for the name finds the object already there.
void ApplicationService::publish() {
    auto connection = *bus_.connection();
    if (!connection.isConnected()) {
        return;
    }
    connection.registerObject(QString::fromStdString(objectPathOf(identifier_)), &object_,
                              QDBusConnection::ExportScriptableSlots);
    auto request = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                  "org.freedesktop.DBus", "RequestName");
    request << QString::fromStdString(identifier_) << kDoNotQueue;
    connection.asyncCall(request);
}

Registration ApplicationService::onReopen(std::function<void()> callback) {
    auto registration = requested_.add(std::move(callback));
    if (std::exchange(wasRequested_, false)) {
        requested_.notify();
    }
    return registration;
}

void ApplicationService::requested() {
    wasRequested_ = requested_.empty();
    requested_.notify();
}

} // namespace panewright
