#include "menubar/save_popover.h"

#include "model/window_state.h"
#include "services/workspace_additions.h"

#include <utility>

namespace panewright {

SavePopover::SavePopover(Services services,
                         const SaveShortcutViewController::Services& controllerServices,
                         const FocusTracking& tracking)
    : services_(std::move(services)), tracking_(tracking),
      controller_(SaveShortcutViewController::create(controllerServices)) {}

bool SavePopover::isShown() {
    const auto* popover = controller_->popover();
    return popover && popover->isShown();
}

void SavePopover::open() {
    controller_->loadViewSafely();
    controller_->reset();
    update();
    bringForward();
}

void SavePopover::update() {
    const auto& application = tracking_.currentApplication();
    controller_->setApplicationName(application ? application->localizedName.value_or(std::string())
                                                : std::string());
    controller_->setApplicationImage(application ? services_.icons.iconOf(*application) : nullptr);
    controller_->setCanBeForAppOnly(application && application->bundleIdentifier);
    controller_->setWindowState(newPendingState());
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

void SavePopover::bringForward() {
    auto& popover = *controller_->popover();
    popover.show(services_.anchor());
    bringApplicationToFrontIfInBackground(services_.workspace, services_.program);
    popover.makeKeyAndOrderFront();
    controller_->view().focusWindowStateName();
}

void SavePopover::close() {
    if (auto* popover = controller_->popover()) {
        popover->close();
    }
}

} // namespace panewright
