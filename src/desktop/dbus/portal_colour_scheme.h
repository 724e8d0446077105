#pragma once

#include "base/observer_list.h"
#include "desktop/dbus/session_bus.h"
#include "desktop/shared/colour_scheme.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>

namespace panewright {

/// What the settings portal says while it runs, which is not started for this (interface
/// org.freedesktop.portal.Settings, namespace org.freedesktop.appearance, key color-scheme: 1 is
/// dark).
class PortalColourScheme : public QObject, public ColourScheme {
    Q_OBJECT

public:
    explicit PortalColourScheme(SessionBus& bus);

    bool isDark() const override { return isDark_; }
    Registration onChange(std::function<void()> callback) override {
        return changed_.add(std::move(callback));
    }

private slots:
    void settingChanged(const QDBusMessage& change);

private:
    void watch();
    void ask();
    void set(const QVariant& value);

    SessionBus& bus_;
    std::unique_ptr<QDBusServiceWatcher> arrivals_;
    bool isDark_ = false;
    ObserverList<> changed_;
    Registration busKnown_;
};

} // namespace panewright
