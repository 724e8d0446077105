#pragma once

#include "menubar/active_window_placer.h"
#include "menubar/application_actions.h"
#include "menubar/edit_popover.h"
#include "menubar/focus_tracking.h"
#include "menubar/hot_key_installation.h"
#include "menubar/menu_view.h"
#include "menubar/save_popover.h"
#include "menubar/status_menu.h"
#include "menubar/views.h"
#include "menubar/window_states_for_scripts.h"
#include "model/window_state_applier.h"
#include "platform/ports.h"
#include "platform/status_item.h"
#include "services/launch_agent_startup_item.h"
#include "services/product_pages.h"
#include "ui/hot_key_refresh.h"
#include "ui/store_troubles.h"
#include "ui/window_state_saving.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

class CarbonKeyEvent;
class Model;
class WindowState;

/// The heart of the running program: owns the status item with its menu and popovers, keeps the hot
/// keys in step with the frontmost application and puts states onto its focused window. Main thread
/// only.
class StatusItemController : public WindowStateApplier,
                             public HotKeyRefresh,
                             public std::enable_shared_from_this<StatusItemController> {
public:
    /// All of it must outlive the controller.
    static std::shared_ptr<StatusItemController> create(const Ports& ports, const Views& views,
                                                        ApplicationActions& actions);

    FocusTracking& tracking() { return *tracking_; }
    const LaunchAgentStartupItem& launchAgentStartupItem() const { return *startupItem_; }
    /// Whether the start-at-login item is checked.
    void setStartupItemState(bool on) { menu_->fixedItems().setStartsAtLogin(on); }
    StatusMenu& menu() { return *menu_; }
    StoreTroubles& storeTroubles() { return *storeTroubles_; }

    /// Sets everything up, shows the status item and, with an application known already, tracks it
    /// and installs the hot keys. Once only: repeating does nothing. The store is loaded here.
    void startStatusItem();

    /// Installs the hot keys that apply now, in place of those installed before, and shows the key
    /// of the next display in the menu.
    void addEventHandlers();

    void settingsChanged() override;

    /// The sender is not used.
    void moveToNextDisplay(const std::shared_ptr<CarbonKeyEvent>& sender);
    /// The same for others than keys. False when the window cannot be moved.
    bool moveWindowToNextDisplay() { return placer_.moveToNextDisplay(); }

    void applyWindowStateToActiveWindow(const std::shared_ptr<WindowState>& state) override;

    /// Applies the first state of that name, or the first one saved from the application of that
    /// name. True when there is one, also if the window could not be placed.
    bool applyWindowStateNamed(std::string_view name);
    bool applyWindowStateNamed(std::string_view name, std::string_view forApplicationNamed);

    /// Only adds: the caller saves and refreshes the hot keys.
    void addWindowState(const std::shared_ptr<WindowState>& state);

    /// Opens the edit popover for it; beeps for a state that is not in the store.
    void editWindowState(const std::shared_ptr<WindowState>& state);

    /// Removes and saves, and gives the hot key that the state overrode back to its owner. Null
    /// removes nothing.
    void removeWindowState(const std::shared_ptr<WindowState>& state);

    /// Opens the save popover for the tracked window; beeps when that cannot be moved and resized.
    void saveWindowPosition();
    WindowStateSaving& saving() { return *savePopover_; }

    /// Opens the menu as a click on the icon does: with the right button if it is to be flat.
    void openMenu(bool isFlat) { clicked({.isRightButton = isFlat}); }

    /// Nil when the store could not be read.
    std::optional<std::vector<WindowStateForScripts>> listWindowStates() const {
        return windowStatesForScripts(*model_, shortcutText_);
    }

    // Actions that concern the whole program and are passed on to it.
    /// Installs the hot keys of the built-in states too.
    void restoreWindowStates();
    void sendFeedback();
    void checkForUpdates();
    void openFAQ();
    /// Nothing: the program's own action opens the settings.
    void settings() {}
    void crash();

private:
    StatusItemController(const Ports& ports, const Views& views, ApplicationActions& actions);

    void awakeFromNib();
    void setupModel();
    void setupMenu();
    void setupStartupItem();
    void setupUI();
    void setupCarbonEventManager();
    void setupNotifications();
    void setupSavePopover();
    void setupEditPopover();
    void setupMenuItems();
    void showStatusItem();
    void lookForStatusItemLater();
    void logIfNotShown() const;
    void clicked(const StatusItemClick& click);
    /// A key in the open menu; true when it is that of a hot key, which then does its work.
    bool hotKeyPressed(const KeyEvent& key);
    void workspaceDidActiveApplication();
    void permissionGiven();
    void updateHotKeys(HotKeyOccasion occasion);
    PopoverSession popoverSession();
    PopoverController::Services popoverServices();
    PopoverAnchor anchor() const;
    bool applyIfThere(const std::shared_ptr<WindowState>& state);

    Ports ports_;
    Views views_;
    ApplicationActions& actions_;
    Tracking usage_;
    ProductPages pages_;
    ShortcutText shortcutText_;
    std::shared_ptr<FocusTracking> tracking_;
    ActiveWindowPlacer placer_;
    Model* model_ = nullptr;
    std::optional<StoreTroubles> storeTroubles_;
    std::optional<StatusMenu> menu_;
    std::optional<SavePopover> savePopover_;
    std::optional<EditPopover> editPopover_;
    std::optional<LaunchAgentStartupItem> startupItem_;
    /// Null while none is set.
    std::shared_ptr<CarbonKeyEvent> moveToNextDisplayKey_;
    bool started_ = false;
    Registration activations_;
    Registration permission_;
    Registration exportedMenu_;
    Registration removedStates_;
    Registration statusItemChanges_;
    Registration lookForStatusItem_;
};

} // namespace panewright
