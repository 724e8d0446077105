#pragma once

#include "menubar/focus_tracking.h"
#include "model/window_state_applier.h"
#include "platform/beeper.h"
#include "services/tracking.h"
#include "shortcuts/shortcut_text.h"

#include <memory>
#include <vector>

namespace panewright {

class WindowState;

/// The heart of the running program: keeps the hot keys in step with the frontmost application and
/// puts states onto its focused window. Main thread only.
class StatusItemController : public WindowStateApplier,
                             public std::enable_shared_from_this<StatusItemController> {
public:
    /// All of it must outlive the controller.
    struct Services {
        Accessibility& accessibility;
        const Displays& displays;
        Workspace& workspace;
        const ProgramInformation& program;
        Beeper& beeper;
        Tracking tracking;
        ShortcutText shortcutText;
    };

    static std::shared_ptr<StatusItemController>
    create(const Services& services, std::vector<std::shared_ptr<WindowState>> defaultStates);

    FocusTracking& tracking() { return *tracking_; }

    /// Starts following the frontmost application; with an application known already, tracks it and
    /// installs the hot keys. Once only: repeating does nothing.
    void startStatusItem();

    void workspaceDidActiveApplication();

    /// Installs the hot keys of all states that apply now, in place of those installed before.
    void addEventHandlers();

    /// Beeps when there is no window that can be placed. Without permission to control other
    /// programs shows the request for it and does nothing else.
    void applyWindowStateToActiveWindow(const std::shared_ptr<WindowState>& state) override;

private:
    StatusItemController(const Services& services,
                         std::vector<std::shared_ptr<WindowState>> defaultStates);

    Services services_;
    AccessibilityHelper helper_;
    std::shared_ptr<FocusTracking> tracking_;
    std::vector<std::shared_ptr<WindowState>> defaultStates_;
    Registration activations_;
};

} // namespace panewright
