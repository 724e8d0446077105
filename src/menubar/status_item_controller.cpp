#include "menubar/status_item_controller.h"

#include "menubar/hot_key_collisions.h"
#include "model/model.h"
#include "model/window_state.h"
#include "services/workspace_additions.h"
#include "shortcuts/carbon_event_manager.h"

#include <utility>
#include <vector>

namespace panewright {
namespace {

constexpr const char* kLaunchAgentLabel = "com.quillfen.Panewright.Agent";
constexpr const char* kLaunchAgentFileName = "com.quillfen.Panewright.Agent.plist";

std::vector<std::shared_ptr<WindowState>> statesIn(const std::shared_ptr<WindowStateArray>& array) {
    return array ? *array : WindowStateArray{};
}

} // namespace

std::shared_ptr<StatusItemController> StatusItemController::create(const Services& services) {
    return std::shared_ptr<StatusItemController>(new StatusItemController(services));
}

StatusItemController::StatusItemController(const Services& services)
    : services_(services),
      tracking_(FocusTracking::create({services.placing.accessibility, services.placing.displays,
                                       services.placing.workspace, services.placing.program})),
      placer_(services.placing, *tracking_) {}

void StatusItemController::startStatusItem() {
    if (std::exchange(started_, true)) {
        return;
    }
    awakeFromNib();
    if (tracking_->currentApplication()) {
        tracking_->updateApplicationTrackingElements();
        addEventHandlers();
    }
}

void StatusItemController::awakeFromNib() {
    setupModel();
    setupStartupItem();
    setupUI();
    setupCarbonEventManager();
    setupNotifications();
}

void StatusItemController::setupModel() {
    model_ = &Model::instance();
}

void StatusItemController::setupStartupItem() {
    startupItem_.emplace(services_.loginItems, services_.placing.program.executablePath(),
                         kLaunchAgentFileName, kLaunchAgentLabel);
    startupItem_->updateExecutablePath();
}

void StatusItemController::setupUI() {
    startupItemState_ = startupItem_->isInstalled();
}

void StatusItemController::setupCarbonEventManager() {
    CarbonEventManager::sharedManager().setWritesToDefaults(false);
}

void StatusItemController::setupNotifications() {
    activations_ = services_.placing.workspace.onApplicationActivated(
        [this] { workspaceDidActiveApplication(); });
}

void StatusItemController::workspaceDidActiveApplication() {
    if (isFrontmostAppThisApp(services_.placing.workspace, services_.placing.program)) {
        return;
    }
    tracking_->updateApplicationTracking();
    addEventHandlers();
}

void StatusItemController::addEventHandlers() {
    CarbonEventManager::sharedManager().removeAllEvents();
    const auto& application = tracking_->currentApplication();
    const auto applicationStates =
        application && application->bundleIdentifier
            ? model_->windowStatesForAppBundleId(*application->bundleIdentifier)
            : nullptr;
    for (const auto& state : statesWithoutCollisions({statesIn(model_->defaultWindowStates()),
                                                      statesIn(model_->globalWindowStates()),
                                                      statesIn(applicationStates)})) {
        state->installKeyEvent();
    }
    installMoveToNextDisplayKey();
}

void StatusItemController::installMoveToNextDisplayKey() {
    moveToNextDisplayItem_ = {};
    const auto event = model_->moveToNextWindowKeyEvent();
    if (!event) {
        return;
    }
    event->setTarget(shared_from_this(), &StatusItemController::moveToNextDisplay);
    CarbonEventManager::sharedManager().addCarbonKeyEvent(event);
    moveToNextDisplayItem_ = {services_.placing.shortcutText.stringForRawKeyCode(
                                  static_cast<std::uint16_t>(event->keyCode())),
                              event->modifierFlags()};
}

void StatusItemController::moveToNextDisplay(const std::shared_ptr<CarbonKeyEvent>& /*sender*/) {
    placer_.moveToNextDisplay();
}

void StatusItemController::applyWindowStateToActiveWindow(
    const std::shared_ptr<WindowState>& state) {
    placer_.applyWindowState(state, *model_);
}

bool StatusItemController::applyWindowStateNamed(std::string_view name) {
    return applyFirst(name, std::nullopt);
}

bool StatusItemController::applyWindowStateNamed(std::string_view name,
                                                 std::string_view forApplicationNamed) {
    return applyFirst(name, forApplicationNamed);
}

bool StatusItemController::applyFirst(std::string_view name,
                                      std::optional<std::string_view> applicationName) {
    const auto all = model_->allWindowStates();
    if (!all) {
        return false;
    }
    for (const auto& [key, states] : *all) {
        for (const auto& state : *states) {
            if (state->windowStateName() == name &&
                (!applicationName || state->appName() == *applicationName)) {
                applyWindowStateToActiveWindow(std::shared_ptr(state));
                return true;
            }
        }
    }
    return false;
}

void StatusItemController::addWindowState(const std::shared_ptr<WindowState>& state) {
    model_->addWindowState(state);
}

void StatusItemController::removeWindowState(const std::shared_ptr<WindowState>& state) {
    services_.placing.tracking.trackEvent(
        kRemoveWindowStateEvent, state->attributesForTracking(services_.placing.shortcutText));
    model_->removeWindowState(state);
    addEventHandlers();
}

} // namespace panewright
