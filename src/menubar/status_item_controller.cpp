#include "menubar/status_item_controller.h"

#include "base/log.h"
#include "geometry/frame_attributes.h"
#include "menubar/hot_key_installation.h"
#include "menubar/menu_exporter.h"
#include "menubar/named_window_states.h"
#include "menubar/status_item_anchor.h"
#include "model/model.h"
#include "model/window_state.h"
#include "platform/displays.h"
#include "platform/main_loop.h"
#include "platform/work_areas.h"
#include "shortcuts/carbon_event_manager.h"
#include "ui/shortcut_remark.h"

#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

constexpr Size kStatusImageSize{17, 14};
constexpr double kStatusItemLength = 23;

/// A desktop that starts brings its panel within this time.
constexpr auto kPatienceForStatusBar = 10s;

} // namespace

std::shared_ptr<StatusItemController>
StatusItemController::create(const Ports& ports, const Views& views, ApplicationActions& actions) {
    return std::shared_ptr<StatusItemController>(new StatusItemController(ports, views, actions));
}

StatusItemController::StatusItemController(const Ports& ports, const Views& views,
                                           ApplicationActions& actions)
    : ports_(ports), views_(views), actions_(actions), usage_(ports.analytics),
      pages_(ports.workspace, ports.program, ports.text, ports.beeper),
      shortcutText_(ports.keyboardLayout, ports.text),
      tracking_(FocusTracking::create(
          {ports.accessibility, ports.displays, ports.workspace, ports.program})),
      placer_({ports.accessibility, ports.displays, ports.workspace, ports.program, ports.beeper,
               usage_, shortcutText_},
              *tracking_) {}

void StatusItemController::startStatusItem() {
    if (std::exchange(started_, true)) {
        return;
    }
    awakeFromNib();
    showStatusItem();
    if (tracking_->currentApplication()) {
        tracking_->updateApplicationTrackingElements();
        updateHotKeys(HotKeyOccasion::kStart);
    }
}

void StatusItemController::showStatusItem() {
    ports_.statusItem.show({"StatusIcon", kStatusImageSize, kStatusItemLength, "Panewright"},
                           [controller = weak_from_this()](const StatusItemClick& click) {
                               if (const auto self = controller.lock()) {
                                   self->clicked(click);
                               }
                           });
    exportedMenu_ = views_.exportedMenu.exportMenu(
        menu_->statusItemMenu(),
        {[this](std::uint64_t held) { menu_->menuNeedsUpdate({.modifierFlags = held}); },
         [this] { menu_->menuDidClose(); }});
    statusItemChanges_ = ports_.statusItem.onShownChange([this] { lookForStatusItemLater(); });
    lookForStatusItemLater();
}

/// A panel may be late, or go.
void StatusItemController::lookForStatusItemLater() {
    lookForStatusItem_ = ports_.mainLoop.after(kPatienceForStatusBar, [this] { logIfNotShown(); });
}

void StatusItemController::logIfNotShown() const {
    if (!ports_.statusItem.isShown()) {
        logLine("no panel shows the icon; to reach the settings, start Panewright again");
    }
}

void StatusItemController::awakeFromNib() {
    setupModel();
    setupStartupItem();
    setupMenu();
    setupUI();
    setupCarbonEventManager();
    setupNotifications();
    setupSavePopover();
    setupEditPopover();
    setupMenuItems();
}

void StatusItemController::setupModel() {
    model_ = &Model::instance();
    storeTroubles_.emplace(
        StoreTroubles::Services{ports_.alerts, *model_, ports_.text,
                                [this] { updateHotKeys(HotKeyOccasion::kStatesRestored); }});
}

void StatusItemController::setupStartupItem() {
    startupItem_.emplace(ports_.loginItems, ports_.program.executablePath(), kLaunchAgentFileName,
                         kLaunchAgentLabel);
    startupItem_->updateExecutablePath();
}

void StatusItemController::setupMenu() {
    const FixedMenuItems::Actions fixedActions{
        .saveWindowPosition = [this] { saveWindowPosition(); },
        .moveToNextDisplay = [this] { moveToNextDisplay(nullptr); },
        .settings = [this] { actions_.settings(); },
        .runAtStartup = [this] { actions_.runAtStartup(); },
        .restoreWindowStates = [this] { restoreWindowStates(); },
        .checkForUpdates = [this] { checkForUpdates(); },
        .sendFeedback = [this] { sendFeedback(); },
        .openFAQ = [this] { actions_.openFAQ(); },
        .crash = [this] { crash(); },
        .quit = [this] { actions_.quit(); }};
    menu_.emplace(
        StatusMenu::Services{ports_.applicationIcons, ports_.displays, ports_.hotKeys,
                             ports_.images, ports_.mainLoop, ports_.text, shortcutText_, usage_,
                             *model_, *storeTroubles_, *tracking_},
        StatusMenu::Actions{[this] { updateHotKeys(HotKeyOccasion::kMenuOpened); },
                            [this](const auto& state) { applyWindowStateToActiveWindow(state); },
                            [this](const auto& state) { editWindowState(state); },
                            [this](const auto& state) { removeWindowState(state); }},
        FixedMenuItems(ports_.text, ports_.program, pages_, fixedActions));
}

void StatusItemController::setupUI() {
    setStartupItemState(startupItem_->isInstalled());
}

void StatusItemController::setupCarbonEventManager() {
    CarbonEventManager::sharedManager().setWritesToDefaults(false);
}

void StatusItemController::setupNotifications() {
    activations_ =
        ports_.workspace.onApplicationActivated([this] { workspaceDidActiveApplication(); });
    permission_ = ports_.accessibility.onTrusted([this] { permissionGiven(); });
    tracking_->setWindowChangedHandler([this] { savePopover_->updateIfOpen(); });
    removedStates_ = model_->onStatesRemoved([this] {
        editPopover_->closeWithoutState();
        savePopover_->showSavingRefusal();
    });
}

void StatusItemController::setupSavePopover() {
    savePopover_.emplace(SavePopover::Services{ports_.applicationIcons, *tracking_,
                                               popoverSession(), popoverServices(),
                                               [this](const auto& state) { addWindowState(state); },
                                               [this] { editPopover_->cancelForAnother(); }},
                         ports_.mainLoop, views_.factory);
}

void StatusItemController::setupEditPopover() {
    editPopover_.emplace(
        EditPopover::Services{*model_, *tracking_, popoverSession(), popoverServices(),
                              [this](const auto& state) { removeWindowState(state); },
                              [this] { savePopover_->cancelForAnother(); }},
        ports_.alerts, views_.factory);
}

PopoverSession StatusItemController::popoverSession() {
    return PopoverSession({ports_.workspace, ports_.program, *model_, [this] { return anchor(); },
                           [this](HotKeyOccasion occasion) { updateHotKeys(occasion); }});
}

PopoverController::Services StatusItemController::popoverServices() {
    return {{ports_.beeper, ports_.hotKeys, *model_, ports_.text, shortcutText_}, usage_};
}

void StatusItemController::setupMenuItems() {
    removeFromContainingMenu(*menu_->fixedItems().crashItem);
}

PopoverAnchor StatusItemController::anchor() const {
    return statusItemAnchor(ports_.statusItem, ports_.displays, ports_.workAreas,
                            tracking_->currentDisplay());
}

void StatusItemController::clicked(const StatusItemClick& click) {
    views_.menu.close(); // so that its clean-up does not come while the next one is open
    menu_->menuNeedsUpdate(click);
    views_.menu.popUp(menu_->statusItemMenu(), anchor(),
                      {[this] { menu_->menuDidClose(); },
                       [this](const KeyEvent& key) { return hotKeyPressed(key); }});
}

bool StatusItemController::hotKeyPressed(const KeyEvent& key) {
    const auto event = installedHotKey(key);
    if (!event || isShortcutTaken(ports_.hotKeys, event->keyCode(), event->modifierFlags())) {
        return false;
    }
    event->invoke(ports_.mainLoop);
    return true;
}

void StatusItemController::workspaceDidActiveApplication() {
    if (!tracking_->updateApplicationTracking()) {
        return;
    }
    savePopover_->updateIfOpen();
    updateHotKeys(HotKeyOccasion::kActivation);
}

/// Nothing could be tracked before.
void StatusItemController::permissionGiven() {
    tracking_->updateApplicationTracking();
    tracking_->updateApplicationTrackingElements(); // also while this program is in front
    updateHotKeys(HotKeyOccasion::kPermission);
}

void StatusItemController::settingsChanged() {
    updateHotKeys(HotKeyOccasion::kSettingsChanged);
}

void StatusItemController::updateHotKeys(HotKeyOccasion occasion) {
    switch (hotKeyChangeAt(occasion, savePopover_->isShown())) {
    case HotKeyChange::kInstall:
        addEventHandlers();
        break;
    case HotKeyChange::kRelease:
        releaseHotKeys();
        break;
    case HotKeyChange::kLeave:
        break;
    }
}

void StatusItemController::addEventHandlers() {
    moveToNextDisplayKey_ = model_->moveToNextWindowKeyEvent();
    if (moveToNextDisplayKey_) {
        moveToNextDisplayKey_->setTarget(shared_from_this(),
                                         &StatusItemController::moveToNextDisplay);
    }
    installHotKeys(*model_, tracking_->currentApplication(), moveToNextDisplayKey_);
    menu_->fixedItems().showMoveToNextDisplayKey(moveToNextDisplayKey_.get(), shortcutText_);
}

void StatusItemController::moveToNextDisplay(const std::shared_ptr<CarbonKeyEvent>& /*sender*/) {
    moveWindowToNextDisplay();
}

void StatusItemController::applyWindowStateToActiveWindow(
    const std::shared_ptr<WindowState>& state) {
    placer_.applyWindowState(state, *model_);
}

bool StatusItemController::applyWindowStateNamed(std::string_view name) {
    return applyIfThere(firstWindowStateNamed(*model_, name));
}

bool StatusItemController::applyWindowStateNamed(std::string_view name,
                                                 std::string_view forApplicationNamed) {
    return applyIfThere(firstWindowStateNamed(*model_, name, forApplicationNamed));
}

bool StatusItemController::applyIfThere(const std::shared_ptr<WindowState>& state) {
    if (state) {
        applyWindowStateToActiveWindow(state);
    }
    return state != nullptr;
}

void StatusItemController::addWindowState(const std::shared_ptr<WindowState>& state) {
    model_->addWindowState(state);
}

void StatusItemController::removeWindowState(const std::shared_ptr<WindowState>& state) {
    usage_.trackEvent(kRemoveWindowStateEvent,
                      state ? state->attributesForTracking(shortcutText_) : EventAttributes{});
    model_->removeWindowState(state);
    updateHotKeys(HotKeyOccasion::kStateRemoved);
}

void StatusItemController::editWindowState(const std::shared_ptr<WindowState>& state) {
    editPopover_->editWindowState(state);
}

void StatusItemController::saveWindowPosition() {
    savePopover_->saveWindowPosition();
}

void StatusItemController::restoreWindowStates() {
    actions_.restoreWindowStates();
    updateHotKeys(HotKeyOccasion::kStatesRestored);
}

void StatusItemController::sendFeedback() {
    actions_.sendFeedback();
}

void StatusItemController::checkForUpdates() {
    usage_.trackEvent(kCheckForUpdatesEvent);
    actions_.checkForUpdates();
}

/// Unlike the program's own action, which the menu has, sends no event.
void StatusItemController::openFAQ() {
    pages_.openFAQ();
}

void StatusItemController::crash() {
    actions_.crash();
}

} // namespace panewright
