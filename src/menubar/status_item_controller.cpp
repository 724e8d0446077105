#include "menubar/status_item_controller.h"

#include "geometry/frame_attributes.h"
#include "menubar/hot_key_collisions.h"
#include "menubar/status_item_anchor.h"
#include "model/model.h"
#include "model/window_state.h"
#include "services/product_website.h"
#include "services/workspace_additions.h"
#include "shortcuts/carbon_event_manager.h"
#include "ui/shortcut_remark.h"

#include <utility>
#include <vector>

namespace panewright {
namespace {

constexpr const char* kLaunchAgentLabel = "com.quillfen.Panewright.Agent";
constexpr const char* kLaunchAgentFileName = "com.quillfen.Panewright.Agent.plist";
constexpr Size kStatusImageSize{17, 14};
constexpr double kStatusItemLength = 23;

std::vector<std::shared_ptr<WindowState>> statesIn(const std::shared_ptr<WindowStateArray>& array) {
    return array ? *array : WindowStateArray{};
}

} // namespace

std::shared_ptr<StatusItemController> StatusItemController::create(const Services& services,
                                                                   ApplicationActions& actions) {
    return std::shared_ptr<StatusItemController>(new StatusItemController(services, actions));
}

StatusItemController::StatusItemController(const Services& services, ApplicationActions& actions)
    : services_(services), actions_(actions),
      tracking_(FocusTracking::create({services.placing.accessibility, services.placing.displays,
                                       services.placing.workspace, services.placing.program})),
      placer_(services.placing, *tracking_),
      menu_(services.text, {[this] { saveWindowPosition(); },
                            [this] { moveToNextDisplay(nullptr); }, [this] { actions_.settings(); },
                            [this] { actions_.runAtStartup(); }, [this] { actions_.quit(); }}) {}

void StatusItemController::startStatusItem() {
    if (std::exchange(started_, true)) {
        return;
    }
    awakeFromNib();
    showStatusItem();
    if (tracking_->currentApplication()) {
        tracking_->updateApplicationTrackingElements();
        addEventHandlers();
    }
}

void StatusItemController::showStatusItem() {
    services_.statusItem.show({"StatusIcon", kStatusImageSize, kStatusItemLength, "Panewright"},
                              [controller = weak_from_this()](const StatusItemClick& click) {
                                  if (const auto self = controller.lock()) {
                                      self->clicked(click);
                                  }
                              });
}

void StatusItemController::awakeFromNib() {
    setupModel();
    setupStartupItem();
    setupUI();
    setupCarbonEventManager();
    setupNotifications();
    setupSavePopover();
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
    setStartupItemState(startupItem_->isInstalled());
}

void StatusItemController::setupCarbonEventManager() {
    CarbonEventManager::sharedManager().setWritesToDefaults(false);
}

void StatusItemController::setupNotifications() {
    activations_ = services_.placing.workspace.onApplicationActivated(
        [this] { workspaceDidActiveApplication(); });
    tracking_->setWindowChangedHandler([this] { updateSaveShortcutViewControllerIfOpen(); });
}

void StatusItemController::setupSavePopover() {
    const auto& placing = services_.placing;
    savePopover_.emplace(SavePopover::Services{services_.icons, placing.workspace, placing.program,
                                               [this] { return anchor(); }},
                         SaveShortcutViewController::Services{
                             placing.beeper, services_.hotKeys, services_.mainLoop, services_.text,
                             placing.shortcutText, placing.tracking, services_.views, *this},
                         *tracking_);
}

PopoverAnchor StatusItemController::anchor() const {
    return statusItemAnchor(services_.statusItem, services_.placing.displays, services_.workAreas,
                            tracking_->currentDisplay());
}

void StatusItemController::clicked(const StatusItemClick& /*click*/) {
    menuNeedsUpdate();
    services_.menuView.popUp(menu_.menu, anchor().rect);
}

void StatusItemController::menuNeedsUpdate() {
    tracking_->updateApplicationTracking();
    menu_.moveToNextDisplayItem->action = nullptr;
    if (services_.placing.displays.screens().size() != 1) {
        menu_.moveToNextDisplayItem->action = [this] { moveToNextDisplay(nullptr); };
    }
    addEventHandlers();
    const auto event = model_->moveToNextWindowKeyEvent();
    menu_.moveToNextDisplayItem->isKeyEquivalentTaken =
        event && isShortcutTaken(services_.hotKeys, event->keyCode(), event->modifierFlags());
}

void StatusItemController::workspaceDidActiveApplication() {
    if (isFrontmostAppThisApp(services_.placing.workspace, services_.placing.program)) {
        return;
    }
    tracking_->updateApplicationTracking();
    if (savePopover_->isShown()) {
        savePopover_->update();
    } else {
        addEventHandlers();
    }
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
    auto& item = *menu_.moveToNextDisplayItem;
    item.keyEquivalent.clear();
    item.keyEquivalentModifierMask = 0;
    const auto event = model_->moveToNextWindowKeyEvent();
    if (!event) {
        return;
    }
    event->setTarget(shared_from_this(), &StatusItemController::moveToNextDisplay);
    CarbonEventManager::sharedManager().addCarbonKeyEvent(event);
    item.keyEquivalent = services_.placing.shortcutText.stringForRawKeyCode(
        static_cast<std::uint16_t>(event->keyCode()));
    item.keyEquivalentModifierMask = event->modifierFlags();
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

void StatusItemController::saveWindowPosition() {
    if (!isFrameSettable(tracking_->windowElement())) {
        services_.placing.beeper.beep();
        return;
    }
    CarbonEventManager::sharedManager().removeAllEvents();
    tracking_->updateApplicationTracking();
    savePopover_->open();
}

void StatusItemController::updateSaveShortcutViewControllerIfOpen() {
    if (savePopover_->isShown()) {
        savePopover_->update();
    }
}

void StatusItemController::finishSavingWindowState() {
    model_->save();
    addEventHandlers();
    abandonSavingWindowState();
}

void StatusItemController::abandonSavingWindowState() {
    savePopover_->close();
    services_.placing.workspace.hideThisApplication();
}

void StatusItemController::sendFeedback() {
    actions_.sendFeedback();
}

void StatusItemController::checkForUpdates() {
    services_.placing.tracking.trackEvent(kCheckForUpdatesEvent);
    actions_.checkForUpdates();
}

/// Unlike the program's own action sends no event.
void StatusItemController::openFAQ() {
    services_.placing.workspace.openUrl(kFAQUrl);
}

void StatusItemController::crash() {
    actions_.crash();
}

} // namespace panewright
