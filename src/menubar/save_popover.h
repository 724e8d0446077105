#pragma once

#include "menubar/focus_tracking.h"
#include "menubar/popover_presenter.h"
#include "platform/application_icons.h"
#include "ui/save_shortcut_view_controller.h"

#include <memory>

namespace panewright {

/// The popover that saves the tracked window's frame as a new state. Main thread only.
class SavePopover {
public:
    /// All of it must outlive the popover.
    SavePopover(ApplicationIcons& icons, PopoverPresenter presenter,
                const SaveShortcutViewController::Services& controllerServices,
                const FocusTracking& tracking);

    bool isShown();
    /// Empties what can be entered, takes the tracked window for the pending state and shows the
    /// popover with the keyboard in the name field. The view is made the first time.
    void open();
    /// Takes the tracked window as it is now for a fresh pending state.
    void update();
    /// Says anew whether what is entered can be saved.
    void showSavingRefusal();
    /// As the user does with the button.
    void cancel() { controller_->cancel(); }
    void close(KeyboardGoes where) { presenter_.close(controller_->popover(), where); }

private:
    std::shared_ptr<WindowState> newPendingState() const;

    ApplicationIcons& icons_;
    PopoverPresenter presenter_;
    const FocusTracking& tracking_;
    std::shared_ptr<SaveShortcutViewController> controller_;
};

} // namespace panewright
