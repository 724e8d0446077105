#include "menubar/status_item_controller.h"

#include "geometry/frame_attributes.h"
#include "menubar/installed_hot_keys.h"
#include "menubar/status_item_anchor.h"
#include "model/model.h"
#include "model/window_state.h"
#include "services/product_website.h"
#include "services/workspace_additions.h"
#include "shortcuts/carbon_event_manager.h"
#include "ui/shortcut_remark.h"

#include <utility>

namespace panewright {
namespace {

constexpr const char* kLaunchAgentLabel = "com.quillfen.Panewright.Agent";
constexpr const char* kLaunchAgentFileName = "com.quillfen.Panewright.Agent.plist";
constexpr Size kStatusImageSize{17, 14};
constexpr double kStatusItemLength = 23;

} // namespace

std::shared_ptr<StatusItemController> StatusItemController::create(const Services& services,
                                                                   ApplicationActions& actions) {
    return std::shared_ptr<StatusItemController>(new StatusItemController(services, actions));
}

StatusItemController::StatusItemController(const Services& services, ApplicationActions& actions)
    : services_(services), actions_(actions),
      tracking_(FocusTracking::create(
          {services.accessibility, services.displays, services.workspace, services.program})),
      placer_({services.accessibility, services.displays, services.workspace, services.program,
               services.beeper, services.tracking, services.shortcutText},
              *tracking_),
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
    startupItem_.emplace(services_.loginItems, services_.program.executablePath(),
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
    activations_ =
        services_.workspace.onApplicationActivated([this] { workspaceDidActiveApplication(); });
    tracking_->setWindowChangedHandler([this] { updateSaveShortcutViewControllerIfOpen(); });
}

void StatusItemController::setupSavePopover() {
    savePopover_.emplace(SavePopover::Services{services_.icons, services_.workspace,
                                               services_.program, [this] { return anchor(); }},
                         SaveShortcutViewController::Services{
                             services_.beeper, services_.hotKeys, services_.mainLoop,
                             services_.text, services_.shortcutText, services_.tracking,
                             services_.views, *this},
                         *tracking_);
}

PopoverAnchor StatusItemController::anchor() const {
    return statusItemAnchor(services_.statusItem, services_.displays, services_.workAreas,
                            tracking_->currentDisplay());
}

void StatusItemController::clicked(const StatusItemClick& /*click*/) {
    menuNeedsUpdate();
    services_.menuView.popUp(menu_.menu, anchor().rect);
}

void StatusItemController::menuNeedsUpdate() {
    tracking_->updateApplicationTracking();
    addEventHandlers();
    auto& moveItem = *menu_.moveToNextDisplayItem;
    moveItem.isEnabled = services_.displays.screens().size() != 1;
    moveItem.isKeyEquivalentTaken =
        moveToNextDisplayKey_ &&
        isShortcutTaken(services_.hotKeys, moveToNextDisplayKey_->keyCode(),
                        moveToNextDisplayKey_->modifierFlags());
}

void StatusItemController::workspaceDidActiveApplication() {
    if (isFrontmostAppThisApp(services_.workspace, services_.program)) {
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
    moveToNextDisplayKey_ = model_->moveToNextWindowKeyEvent();
    if (moveToNextDisplayKey_) {
        moveToNextDisplayKey_->setTarget(shared_from_this(),
                                         &StatusItemController::moveToNextDisplay);
    }
    installHotKeys(*model_, tracking_->currentApplication(), moveToNextDisplayKey_);
    showMoveToNextDisplayKey();
}

void StatusItemController::showMoveToNextDisplayKey() {
    auto& item = *menu_.moveToNextDisplayItem;
    const auto& key = moveToNextDisplayKey_;
    item.keyEquivalent = key ? services_.shortcutText.keyEquivalentForKeyCode(
                                   static_cast<std::uint16_t>(key->keyCode()))
                             : "";
    item.keyEquivalentModifierMask = key ? key->modifierFlags() : 0;
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
                applyWindowStateToActiveWindow(
                    std::shared_ptr(state)); // the store may drop its own
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
    services_.tracking.trackEvent(kRemoveWindowStateEvent,
                                  state->attributesForTracking(services_.shortcutText));
    model_->removeWindowState(state);
    addEventHandlers();
}

void StatusItemController::saveWindowPosition() {
    if (!isFrameSettable(tracking_->windowElement())) {
        services_.beeper.beep();
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
    services_.workspace.hideThisApplication();
}

void StatusItemController::sendFeedback() {
    actions_.sendFeedback();
}

void StatusItemController::checkForUpdates() {
    services_.tracking.trackEvent(kCheckForUpdatesEvent);
    actions_.checkForUpdates();
}

/// Unlike the program's own action sends no event.
void StatusItemController::openFAQ() {
    services_.workspace.openUrl(kFAQUrl);
}

void StatusItemController::crash() {
    actions_.crash();
}

} // namespace panewright
