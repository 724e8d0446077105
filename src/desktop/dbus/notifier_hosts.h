#pragma once

#include "base/observer_list.h"
#include "desktop/dbus/session_bus.h"
#include "desktop/shared/system_tray.h"

#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace panewright {

/// Panels that show items of the session bus
/// (https://www.freedesktop.org/wiki/Specifications/StatusNotifierItem).
class NotifierHosts : public QObject, public SystemTray {
    Q_OBJECT

public:
    explicit NotifierHosts(SessionBus& bus);

    std::optional<bool> isPresent() const override { return isPresent_; }
    /// So does GNOME's host, which lives in the shell.
    bool onlyOpensMenus() const override { return isShell_; }
    Registration onChange(std::function<void()> callback) override {
        return changed_.add(std::move(callback));
    }

private slots:
    void ask();

private:
    void watch();
    void askForOwners(bool isPresent);
    /// Empty for a name that nobody owns.
    void ownerOf(const char* name, std::function<void(const QString&)> answered);
    void set(bool isPresent);

    SessionBus& bus_;
    std::unique_ptr<QDBusServiceWatcher> watchers_;
    std::optional<bool> isPresent_;
    bool isShell_ = false;
    ObserverList<> changed_;
    Registration busKnown_;
    Registration busEnded_;
};

} // namespace panewright
