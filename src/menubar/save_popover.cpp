#include "menubar/save_popover.h"

#include "model/window_state.h"

#include <utility>

namespace panewright {

SavePopover::SavePopover(ApplicationIcons& icons, PopoverPresenter presenter,
                         const SaveShortcutViewController::Services& controllerServices,
                         const FocusTracking& tracking)
    : icons_(icons), presenter_(std::move(presenter)), tracking_(tracking),
      controller_(SaveShortcutViewController::create(controllerServices)) {}

bool SavePopover::isShown() {
    const auto* popover = controller_->popover();
    return popover && popover->isShown();
}

void SavePopover::open() {
    controller_->loadViewSafely();
    controller_->reset();
    update();
    presenter_.bringForward(*controller_->popover());
    controller_->view().focusWindowStateName();
}

void SavePopover::update() {
    const auto& application = tracking_.currentApplication();
    controller_->setApplicationName(application ? application->localizedName.value_or(std::string())
                                                : std::string());
    controller_->setApplicationImage(application ? icons_.iconOf(*application) : nullptr);
    controller_->setCanBeForAppOnly(application && application->bundleIdentifier);
    controller_->setWindowState(newPendingState());
}

void SavePopover::showSavingRefusal() {
    if (isShown()) {
        controller_->showSavingRefusal();
    }
}

std::shared_ptr<WindowState> SavePopover::newPendingState() const {
    auto state = WindowState::init();
    if (const auto& application = tracking_.currentApplication()) {
        state->setAppBundleId(application->bundleIdentifier);
        state->setAppName(application->localizedName);
    }
    state->setOriginalWindowRect(tracking_.windowRect());
    state->setOriginalQuartzDisplayBounds(boundsOf(tracking_.currentDisplay()));
    return state;
}

} // namespace panewright
