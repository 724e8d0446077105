#pragma once

#include "menubar/focus_tracking.h"
#include "menubar/popover_presenter.h"
#include "ui/edit_shortcut_view_controller.h"

#include <memory>

namespace panewright {

/// The popover that edits a stored state. Main thread only.
class EditPopover {
public:
    /// All of it must outlive the popover.
    EditPopover(PopoverPresenter presenter,
                const EditShortcutViewController::Services& controllerServices, const Model& model,
                const FocusTracking& tracking);

    bool isShown() const;
    /// Takes the state, and the window as it was last tracked for a frame that may replace its own,
    /// and shows the popover with the keyboard in the name field. The view is made the first time.
    void open(const std::shared_ptr<WindowState>& state);
    /// As the user does with the button.
    void cancel() { controller_->cancel(); }
    /// Closes as Escape does when the state has left the store.
    void closeWithoutState();
    void close(KeyboardGoes where) { presenter_.close(controller_->popover(), where); }

private:
    PopoverPresenter presenter_;
    const Model& model_;
    const FocusTracking& tracking_;
    std::shared_ptr<EditShortcutViewController> controller_;
};

} // namespace panewright
