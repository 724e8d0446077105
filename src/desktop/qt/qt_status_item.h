#pragma once

#include "base/observer_list.h"
#include "base/registration.h"
#include "desktop/shared/screen_brightness.h"
#include "desktop/shared/system_tray.h"
#include "platform/displays.h"
#include "platform/status_item.h"
#include "platform/work_areas.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace panewright {

/// The status item as a tray icon, of either kind: StatusNotifierItem on the session bus, or a
/// window in an XEmbed tray. Qt chooses between them the first time that it is asked for an icon
/// and never again, so it is asked only once there is a panel that shows one.
/// Where a click does nothing but open a menu, the item says that it has one; what is in it,
/// another adapter puts on the bus.
class QtStatusItem : public QObject, public StatusItem {
    Q_OBJECT

public:
    /// The trays of the two kinds; with both there the toolkit takes the one on the bus. All of it
    /// must outlive the item.
    struct Trays {
        SystemTray& onBus;
        SystemTray& ofWindows;
    };
    QtStatusItem(const Trays& trays, const ScreenBrightness& brightness, const Displays& displays,
                 const WorkAreas& workAreas);
    ~QtStatusItem() override;

    void show(const StatusItemLook& look,
              std::function<void(const StatusItemClick&)> clicked) override;
    bool isShown() const override;
    Registration onShownChange(std::function<void()> callback) override {
        return shownChanged_.add(std::move(callback));
    }
    std::optional<Rect> frame() const override;

private:
    void lookForPanel();
    void showIcon();
    void activated(QSystemTrayIcon::ActivationReason reason);
    std::optional<Rect> trayGeometry() const;
    void suitPanel();

    std::optional<double> brightnessBehindIcon() const;

    Trays trays_;
    const ScreenBrightness& brightness_;
    const Displays& displays_;
    const WorkAreas& workAreas_;
    StatusItemLook look_;
    std::function<void(const StatusItemClick&)> clicked_;
    std::unique_ptr<QSystemTrayIcon> icon_;
    /// Empty: it only makes the toolkit say that there is a menu.
    std::unique_ptr<QMenu> announcedMenu_;
    /// Whether the toolkit shows the icon through the bus.
    bool isOnBus_ = false;
    bool wasShown_ = false;
    ObserverList<> shownChanged_;
    std::optional<Rect> lastClick_;
    Registration busTrayChanges_;
    Registration windowTrayChanges_;
};

} // namespace panewright
