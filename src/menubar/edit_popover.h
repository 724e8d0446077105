#pragma once

#include "menubar/focus_tracking.h"
#include "menubar/popover_session.h"
#include "ui/edit_shortcut_view_controller.h"
#include "ui/window_state_editing.h"

#include <functional>
#include <memory>

namespace panewright {

/// The popover that edits a stored state, from its opening to its end. Main thread only.
class EditPopover : public WindowStateEditing {
public:
    /// All of it must outlive the popover.
    struct Services {
        Model& model;
        const FocusTracking& tracking;
        PopoverSession session;
        PopoverController::Services shared;
        std::function<void(const std::shared_ptr<WindowState>&)> removeWindowState;
        /// Called before it opens: there is one popover at a time.
        std::function<void()> cancelOther;
    };

    EditPopover(Services services, Alerts& alerts, ViewFactory& views);

    /// Beeps for a state that is not in the store.
    void editWindowState(const std::shared_ptr<WindowState>& state);
    void finishEditingWindowState() override { services_.session.finish(controller_->popover()); }
    void abandonEditingWindowState() override { services_.session.abandon(controller_->popover()); }
    void removeWindowState(const std::shared_ptr<WindowState>& state) override {
        services_.removeWindowState(state);
    }

    /// As the user does with the button; nothing while it is closed.
    void cancelForAnother();
    /// Closes as Escape does when the state has left the store.
    void closeWithoutState();

private:
    /// Takes the state, and the window as it was last tracked for a frame that may replace its own,
    /// and shows the popover with the keyboard in the name field. The view is made the first time.
    void open(const std::shared_ptr<WindowState>& state);

    Services services_;
    std::shared_ptr<EditShortcutViewController> controller_;
};

} // namespace panewright
