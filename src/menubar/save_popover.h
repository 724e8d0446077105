#pragma once

#include "menubar/focus_tracking.h"
#include "platform/application_icons.h"
#include "ui/popover.h"
#include "ui/save_shortcut_view_controller.h"

#include <functional>
#include <memory>

namespace panewright {

/// The popover that saves the tracked window's frame as a new state. Main thread only.
class SavePopover {
public:
    /// All of it must outlive the popover.
    struct Services {
        ApplicationIcons& icons;
        Workspace& workspace;
        const ProgramInformation& program;
        /// Where it hangs from, asked at each opening.
        std::function<PopoverAnchor()> anchor;
    };

    SavePopover(Services services, const SaveShortcutViewController::Services& controllerServices,
                const FocusTracking& tracking);

    bool isShown();
    /// Empties what can be entered, takes the tracked window for the pending state and shows the
    /// popover with the keyboard in the name field. The view is made the first time.
    void open();
    /// Takes the tracked window as it is now for a fresh pending state.
    void update();
    void close();

private:
    std::shared_ptr<WindowState> newPendingState() const;
    void bringForward();

    Services services_;
    const FocusTracking& tracking_;
    std::shared_ptr<SaveShortcutViewController> controller_;
};

} // namespace panewright
