#include "menubar/save_popover.h"

#include "geometry/frame_attributes.h"
#include "model/window_state.h"

#include <utility>

namespace panewright {

SavePopover::SavePopover(Services services, MainLoop& mainLoop, ViewFactory& views)
    : services_(std::move(services)),
      controller_(SaveShortcutViewController::create({services_.shared, mainLoop, views, *this})) {}

void SavePopover::saveWindowPosition() {
    if (!isFrameSettable(services_.tracking.windowElement(), kSizeThenPosition)) {
        services_.shared.beeper.beep();
        return;
    }
    services_.cancelOther();
    services_.session.prepare();
    services_.tracking.updateApplicationTracking();
    open();
}

void SavePopover::open() {
    controller_->loadViewSafely();
    controller_->reset();
    update();
    services_.session.bringForward(*controller_);
}

void SavePopover::cancelForAnother() {
    services_.session.cancelForAnother(controller_->popover(), [this] { controller_->cancel(); });
}

void SavePopover::updateIfOpen() {
    if (isShown()) {
        update();
    }
}

void SavePopover::update() {
    const auto& application = services_.tracking.currentApplication();
    controller_->setApplicationName(application ? application->localizedName.value_or(std::string())
                                                : std::string());
    controller_->setApplicationImage(application ? services_.icons.iconOf(*application) : nullptr);
    controller_->setCanBeForAppOnly(application && application->bundleIdentifier);
    controller_->setWindowState(newPendingState());
}

void SavePopover::showSavingRefusal() {
    if (isShown()) {
        controller_->showSavingRefusal();
    }
}

std::shared_ptr<WindowState> SavePopover::newPendingState() const {
    const auto& tracking = services_.tracking;
    auto state = WindowState::init();
    if (const auto& application = tracking.currentApplication()) {
        state->setAppBundleId(application->bundleIdentifier);
        state->setAppName(application->localizedName);
    }
    state->setOriginalWindowRect(tracking.windowRect());
    state->setOriginalQuartzDisplayBounds(tracking.currentDisplayBounds());
    return state;
}

} // namespace panewright
