#include "desktop/dbus/notifier_hosts.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace panewright {
namespace {

constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kShell = "org.gnome.Shell";
constexpr const char* kWatcherPath = "/StatusNotifierWatcher";
constexpr const char* kHostsProperty = "IsStatusNotifierHostRegistered";
/// The watcher tells of hosts that come and, where it knows of it, of those that go.
constexpr const char* kHostSignals[] = {"StatusNotifierHostRegistered",
                                        "StatusNotifierHostUnregistered"};

} // namespace

NotifierHosts::NotifierHosts(SessionBus& bus)
    : bus_(bus), busKnown_(bus.onKnown([this] { watch(); })),
      busEnded_(bus.onEnded([this] { set(false); })) {
    if (bus.connection()) {
        watch();
    }
}

void NotifierHosts::watch() {
    auto connection = *bus_.connection();
    if (!connection.isConnected()) {
        set(false);
        return;
    }
    watchers_ = std::make_unique<QDBusServiceWatcher>(kWatcher, connection,
                                                      QDBusServiceWatcher::WatchForOwnerChange);
    connect(watchers_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this, &NotifierHosts::ask);
    for (const char* signal : kHostSignals) {
        connection.connect(kWatcher, kWatcherPath, kWatcher, signal, this, SLOT(ask()));
    }
    ask();
}

void NotifierHosts::ask() {
    auto question = QDBusMessage::createMethodCall(kWatcher, kWatcherPath,
                                                   "org.freedesktop.DBus.Properties", "Get");
    question << kWatcher << kHostsProperty;
    question.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(bus_.connection()->asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        askForOwners(reply.isValid() && reply.value().variant().toBool());
    });
}

/// Who owns the watcher's name is known before anybody hears of a host.
void NotifierHosts::askForOwners(bool isPresent) {
    if (!isPresent) {
        set(false);
        return;
    }
    ownerOf(kWatcher, [this](const QString& watcher) {
        ownerOf(kShell, [this, watcher](const QString& shell) {
            isShell_ = !watcher.isEmpty() && watcher == shell;
            set(true);
        });
    });
}

void NotifierHosts::ownerOf(const char* name, std::function<void(const QString&)> answered) {
    auto question = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                   "org.freedesktop.DBus", "GetNameOwner");
    question << name;
    auto* answer = new QDBusPendingCallWatcher(bus_.connection()->asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [answer, answered = std::move(answered)] {
                answer->deleteLater();
                const QDBusPendingReply<QString> reply = *answer;
                answered(reply.isValid() ? reply.value() : QString());
            });
}

void NotifierHosts::set(bool isPresent) {
    if (std::exchange(isPresent_, isPresent) != isPresent) {
        changed_.notify();
    }
}

} // namespace panewright
