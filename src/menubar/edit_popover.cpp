#include "menubar/edit_popover.h"

#include "model/model.h"

#include <utility>

namespace panewright {

EditPopover::EditPopover(PopoverPresenter presenter,
                         const EditShortcutViewController::Services& controllerServices,
                         const Model& model, const FocusTracking& tracking)
    : presenter_(std::move(presenter)), model_(model), tracking_(tracking),
      controller_(EditShortcutViewController::create(controllerServices)) {}

bool EditPopover::isShown() const {
    const auto* popover = controller_->popover();
    return popover && popover->isShown();
}

void EditPopover::open(const std::shared_ptr<WindowState>& state) {
    controller_->loadViewSafely();
    controller_->setWindowState(state);
    controller_->setNewOriginalWindowRect(tracking_.windowRect());
    controller_->setNewQuartzDisplayBounds(boundsOf(tracking_.currentDisplay()));
    presenter_.bringForward(*controller_->popover());
    controller_->view().focusWindowStateName();
}

void EditPopover::closeWithoutState() {
    if (isShown() && controller_->windowState() &&
        !model_.keyOfWindowState(controller_->windowState())) {
        controller_->closeRequested();
    }
}

} // namespace panewright
