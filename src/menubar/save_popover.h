#pragma once

#include "menubar/focus_tracking.h"
#include "menubar/popover_session.h"
#include "platform/application_icons.h"
#include "ui/save_shortcut_view_controller.h"
#include "ui/window_state_saving.h"

#include <functional>
#include <memory>

namespace panewright {

/// The popover that saves the tracked window's frame as a new state, from its opening to its end.
/// Main thread only.
class SavePopover : public WindowStateSaving {
public:
    /// All of it must outlive the popover.
    struct Services {
        ApplicationIcons& icons;
        FocusTracking& tracking;
        PopoverSession session;
        PopoverController::Services shared;
        std::function<void(const std::shared_ptr<WindowState>&)> addWindowState;
        /// Called before it opens: there is one popover at a time.
        std::function<void()> cancelOther;
    };

    SavePopover(Services services, MainLoop& mainLoop, ViewFactory& views);

    bool isShown() const { return PopoverSession::isShown(controller_->popover()); }

    void saveWindowPosition() override;
    void addWindowState(const std::shared_ptr<WindowState>& state) override {
        services_.addWindowState(state);
    }
    void finishSavingWindowState() override { services_.session.finish(controller_->popover()); }
    void abandonSavingWindowState() override { services_.session.abandon(controller_->popover()); }

    /// Takes the tracked window as it is now for a fresh pending state; nothing while it is closed.
    void updateIfOpen();
    /// Says anew whether what is entered can be saved; nothing while it is closed.
    void showSavingRefusal();
    /// As the user does with the button; nothing while it is closed.
    void cancelForAnother();

private:
    /// Empties what can be entered and shows the popover with the keyboard in the name field. The
    /// view is made the first time.
    void open();
    void update();
    std::shared_ptr<WindowState> newPendingState() const;

    Services services_;
    std::shared_ptr<SaveShortcutViewController> controller_;
};

} // namespace panewright
