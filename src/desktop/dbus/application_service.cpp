#include "desktop/dbus/application_service.h"

#include "base/log.h"
#include "desktop/dbus/application_adaptor.h"
#include "desktop/dbus/incoming_calls.h"
#include "desktop/dbus/scripting_adaptor.h"

#include <algorithm>
#include <utility>

namespace panewright {
namespace {

constexpr unsigned kDoNotQueue = 4;   // D-Bus specification, "RequestName"
constexpr unsigned kPrimaryOwner = 1; // what it answers to who has the name now

} // namespace

std::string objectPathOf(std::string identifier) {
    std::replace(identifier.begin(), identifier.end(), '.', '/');
    std::replace(identifier.begin(), identifier.end(), '-', '_');
    return '/' + identifier;
}

/// What callers see.
struct ApplicationService::Object {
    Object(MainLoop& mainLoop, const QDBusConnection& connection, ScriptingCommands& commands,
           std::function<void()> activated)
        : calls(mainLoop, connection) {
        new ApplicationAdaptor(calls, std::move(activated),
                               {{"save", [&] { commands.saveWindow(); }},
                                {"settings", [&] { commands.showSettings(); }},
                                {"next-display", [&] { commands.moveToNextDisplay(); }}});
        new ScriptingAdaptor(calls, commands);
    }

    IncomingCalls calls; // owns the adaptors
};

ApplicationService::ApplicationService(SessionBus& bus, MainLoop& mainLoop, std::string identifier,
                                       StartedBy startedBy)
    : bus_(bus), mainLoop_(mainLoop), identifier_(std::move(identifier)), startedBy_(startedBy),
      busEnded_(bus.onEnded([] {
          logLine("the session bus has gone away: scripts do not reach this program any more");
      })) {}

ApplicationService::~ApplicationService() = default;

Registration ApplicationService::serve(ScriptingCommands& commands) {
    commands_ = &commands;
    if (bus_.connection()) {
        publish();
    } else {
        busKnown_ = bus_.onKnown([this] { publish(); });
    }
    return Registration([this] {
        busKnown_.release();
        object_.reset();
    });
}

/// Nothing waits for the bus: who asks for the name finds the object already there.
void ApplicationService::publish() {
    const auto& connection = *bus_.connection();
    if (!connection.isConnected()) {
        logLine("no session bus: scripts do not reach this program");
        return;
    }
    object_ = std::make_unique<Object>(mainLoop_, connection, *commands_, [this] { requested(); });
    object_->calls.registerObject(QString::fromStdString(objectPathOf(identifier_)));
    requestName();
}

void ApplicationService::requestName() {
    auto request = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                  "org.freedesktop.DBus", "RequestName");
    request << QString::fromStdString(identifier_) << kDoNotQueue;
    auto* const answer = new QDBusPendingCallWatcher(bus_.connection()->asyncCall(request), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        nameAnswered(answer->reply());
    });
}

void ApplicationService::nameAnswered(const QDBusMessage& reply) const {
    if (reply.type() == QDBusMessage::ReplyMessage) {
        if (reply.arguments().value(0).toUInt() != kPrimaryOwner) {
            logLine("another program owns the bus name " + identifier_ +
                    ": scripts do not reach this one");
        }
    } else if (bus_.connection()->isConnected()) {
        logLine("the session bus refuses the bus name " + identifier_ +
                ": scripts do not reach this program");
    }
}

void ApplicationService::requested() {
    if (startedBy_ == StartedBy::kCall && object_->calls.isDoingFirst()) {
        return;
    }
    requested_.notify();
}

} // namespace panewright
