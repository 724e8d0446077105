#pragma once

#include "base/registration.h"
#include "desktop/shared/screen_brightness.h"
#include "desktop/shared/system_tray.h"
#include "platform/displays.h"
#include "platform/status_item.h"
#include "platform/work_areas.h"

#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

class QDBusServiceWatcher;

namespace panewright {

/// The status item as a tray icon, of either kind: StatusNotifierItem on the session bus, or a
/// window in an XEmbed tray. Qt chooses between them the first time that it is asked for an icon
/// and never again, so it is asked only once there is a panel that shows one.
class QtStatusItem : public QObject, public StatusItem {
    Q_OBJECT

public:
    /// All of it must outlive the item.
    QtStatusItem(SystemTray& tray, const ScreenBrightness& brightness, const Displays& displays,
                 const WorkAreas& workAreas);
    ~QtStatusItem() override;

    void show(const StatusItemLook& look,
              std::function<void(const StatusItemClick&)> clicked) override;
    std::optional<Rect> frame() const override;

private slots:
    void lookForPanel();

private:
    void watchNotifierHosts();
    /// In a host on the bus, else in the XEmbed tray; nothing when that is not there either.
    void showIconIn(bool notifierHost);
    void activated(QSystemTrayIcon::ActivationReason reason);
    std::optional<Rect> trayGeometry() const;
    void suitPanel();

    std::optional<double> brightnessBehindIcon() const;

    SystemTray& tray_;
    const ScreenBrightness& brightness_;
    const Displays& displays_;
    const WorkAreas& workAreas_;
    StatusItemLook look_;
    std::function<void(const StatusItemClick&)> clicked_;
    std::unique_ptr<QDBusServiceWatcher> notifierHosts_;
    std::unique_ptr<QSystemTrayIcon> icon_;
    bool isInNotifierHost_ = false;
    std::optional<Rect> lastClick_;
    Registration trayChanges_;
};

} // namespace panewright
