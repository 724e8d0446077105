#include "menubar/status_item_controller.h"

#include "geometry/window_placement.h"
#include "menubar/hot_key_collisions.h"
#include "model/window_state.h"
#include "services/workspace_additions.h"
#include "shortcuts/carbon_event_manager.h"

#include <utility>

namespace panewright {

std::shared_ptr<StatusItemController>
StatusItemController::create(const Services& services,
                             std::vector<std::shared_ptr<WindowState>> defaultStates) {
    return std::shared_ptr<StatusItemController>(
        new StatusItemController(services, std::move(defaultStates)));
}

StatusItemController::StatusItemController(const Services& services,
                                           std::vector<std::shared_ptr<WindowState>> defaultStates)
    : services_(services), helper_(services.accessibility),
      tracking_(FocusTracking::create({services.accessibility, services.displays,
                                       services.workspace, services.program})),
      defaultStates_(std::move(defaultStates)) {}

void StatusItemController::startStatusItem() {
    if (activations_) {
        return;
    }
    CarbonEventManager::sharedManager().setWritesToDefaults(false);
    activations_ =
        services_.workspace.onApplicationActivated([this] { workspaceDidActiveApplication(); });
    if (tracking_->currentApplication()) {
        tracking_->updateApplicationTrackingElements();
        addEventHandlers();
    }
}

void StatusItemController::workspaceDidActiveApplication() {
    if (isFrontmostAppThisApp(services_.workspace, services_.program)) {
        return;
    }
    tracking_->updateApplicationTracking();
    addEventHandlers();
}

void StatusItemController::addEventHandlers() {
    CarbonEventManager::sharedManager().removeAllEvents();
    for (const auto& state : statesWithoutCollisions({defaultStates_})) {
        state->installKeyEvent();
    }
}

void StatusItemController::applyWindowStateToActiveWindow(
    const std::shared_ptr<WindowState>& state) {
    if (!helper_.accessibilityEnabledWithPrompt()) {
        bringApplicationToFrontIfInBackground(services_.workspace, services_.program);
        return;
    }
    tracking_->updateApplicationTracking();
    const auto display = QuartzDisplay::withRect(services_.displays, tracking_->windowRect());
    if (!applyToWindowElement(*state, tracking_->windowElement(), display, services_.displays)) {
        services_.beeper.beep();
    }
    services_.tracking.trackEvent(kApplyWindowStateEvent,
                                  state->attributesForTracking(services_.shortcutText));
}

} // namespace panewright
