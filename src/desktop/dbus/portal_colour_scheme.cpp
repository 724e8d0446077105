#include "desktop/dbus/portal_colour_scheme.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace panewright {
namespace {

constexpr const char* kPortal = "org.freedesktop.portal.Desktop";
constexpr const char* kPortalPath = "/org/freedesktop/portal/desktop";
constexpr const char* kSettings = "org.freedesktop.portal.Settings";
constexpr const char* kAppearance = "org.freedesktop.appearance";
constexpr const char* kColourScheme = "color-scheme";
constexpr uint kDark = 1;

/// Read() wraps its answer in a variant of its own.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

PortalColourScheme::PortalColourScheme(SessionBus& bus)
    : bus_(bus), busKnown_(bus.onKnown([this] { watch(); })) {
    if (bus.connection()) {
        watch();
    }
}

void PortalColourScheme::watch() {
    auto connection = *bus_.connection();
    if (connection.isConnected()) {
        arrivals_ = std::make_unique<QDBusServiceWatcher>(
            kPortal, connection, QDBusServiceWatcher::WatchForRegistration);
        connect(arrivals_.get(), &QDBusServiceWatcher::serviceRegistered, this,
                &PortalColourScheme::ask);
        connection.connect(kPortal, kPortalPath, kSettings, "SettingChanged", this,
                           SLOT(settingChanged(QDBusMessage)));
        ask();
    }
}

void PortalColourScheme::ask() {
    auto question = QDBusMessage::createMethodCall(kPortal, kPortalPath, kSettings, "Read");
    question << kAppearance << kColourScheme;
    question.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(bus_.connection()->asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid()) {
            set(reply.value().variant());
        }
    });
}

/// Namespace, key and value.
void PortalColourScheme::settingChanged(const QDBusMessage& change) {
    const auto what = change.arguments();
    if (what.size() == 3 && what[0] == kAppearance && what[1] == kColourScheme) {
        set(what[2]);
    }
}

void PortalColourScheme::set(const QVariant& value) {
    const bool isDark = unwrapped(value).toUInt() == kDark;
    if (std::exchange(isDark_, isDark) != isDark) {
        changed_.notify();
    }
}

} // namespace panewright
