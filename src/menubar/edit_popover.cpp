#include "menubar/edit_popover.h"

#include "model/model.h"
#include "model/window_state.h"

#include <utility>

namespace panewright {

EditPopover::EditPopover(Services services, Alerts& alerts, ViewFactory& views)
    : services_(std::move(services)),
      controller_(EditShortcutViewController::create({services_.shared, alerts, views, *this})) {}

void EditPopover::editWindowState(const std::shared_ptr<WindowState>& state) {
    if (!services_.model.keyOfWindowState(state)) {
        services_.shared.beeper.beep();
        return;
    }
    services_.cancelOther();
    cancelForAnother(); // of another state, whose new shortcut is to be saved
    services_.shared.tracking.trackEvent(
        kEditWindowStateEvent, state->attributesForTracking(services_.shared.shortcutText));
    services_.session.prepare();
    open(state);
}

void EditPopover::open(const std::shared_ptr<WindowState>& state) {
    controller_->loadViewSafely();
    controller_->setWindowState(state);
    controller_->setNewOriginalWindowRect(services_.tracking.windowRect());
    controller_->setNewQuartzDisplayBounds(services_.tracking.currentDisplayBounds());
    services_.session.bringForward(*controller_);
}

void EditPopover::cancelForAnother() {
    services_.session.cancelForAnother(controller_->popover(), [this] { controller_->cancel(); });
}

void EditPopover::closeWithoutState() {
    if (PopoverSession::isShown(controller_->popover()) && controller_->windowState() &&
        !services_.model.keyOfWindowState(controller_->windowState())) {
        controller_->closeRequested();
    }
}

} // namespace panewright
