#pragma once

#include "menubar/active_window_placer.h"
#include "menubar/focus_tracking.h"
#include "model/window_state_applier.h"
#include "platform/login_item.h"
#include "services/launch_agent_startup_item.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace panewright {

class CarbonKeyEvent;
class Model;
class WindowState;

/// The heart of the running program: keeps the hot keys in step with the frontmost application and
/// puts states onto its focused window. Main thread only.
class StatusItemController : public WindowStateApplier,
                             public std::enable_shared_from_this<StatusItemController> {
public:
    /// All of it must outlive the controller.
    struct Services {
        ActiveWindowPlacer::Services placing;
        const LoginItemFormat& loginItems;
    };

    /// What the menu shows of the hot key of an item.
    struct ShownShortcut {
        /// Empty without one.
        std::string keyEquivalent;
        std::uint64_t keyEquivalentModifierMask = 0;

        friend bool operator==(const ShownShortcut&, const ShownShortcut&) = default;
    };

    static std::shared_ptr<StatusItemController> create(const Services& services);

    FocusTracking& tracking() { return *tracking_; }
    const LaunchAgentStartupItem& launchAgentStartupItem() const { return *startupItem_; }
    /// Whether the start-at-login item is checked.
    bool startupItemState() const { return startupItemState_; }
    void setStartupItemState(bool on) { startupItemState_ = on; }
    const ShownShortcut& moveToNextDisplayItem() const { return moveToNextDisplayItem_; }

    /// Sets everything up and, with an application known already, tracks it and installs the hot
    /// keys. Once only: repeating does nothing. The store is loaded here.
    void startStatusItem();

    void workspaceDidActiveApplication();

    /// Installs the hot keys of all states that apply now, and the one that moves to the next
    /// display, in place of those installed before.
    void addEventHandlers();

    /// The sender is not used.
    void moveToNextDisplay(const std::shared_ptr<CarbonKeyEvent>& sender);

    void applyWindowStateToActiveWindow(const std::shared_ptr<WindowState>& state) override;

    /// Applies the first state of that name, whatever application it belongs to, or only one saved
    /// from the application of that name; both compare exactly. True when there is one, also if the
    /// window could not be placed.
    bool applyWindowStateNamed(std::string_view name);
    bool applyWindowStateNamed(std::string_view name, std::string_view forApplicationNamed);

    /// Only adds: the caller saves and refreshes the hot keys.
    void addWindowState(const std::shared_ptr<WindowState>& state);

    /// Removes and saves, and gives the hot key that the state overrode back to its owner.
    void removeWindowState(const std::shared_ptr<WindowState>& state);

private:
    explicit StatusItemController(const Services& services);

    void awakeFromNib();
    void setupModel();
    void setupStartupItem();
    void setupUI();
    void setupCarbonEventManager();
    void setupNotifications();
    void installMoveToNextDisplayKey();
    bool applyFirst(std::string_view name, std::optional<std::string_view> applicationName);

    Services services_;
    std::shared_ptr<FocusTracking> tracking_;
    ActiveWindowPlacer placer_;
    Model* model_ = nullptr;
    std::optional<LaunchAgentStartupItem> startupItem_;
    bool startupItemState_ = false;
    ShownShortcut moveToNextDisplayItem_;
    bool started_ = false;
    Registration activations_;
};

} // namespace panewright
