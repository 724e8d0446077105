#include "ui/edit_shortcut_view_controller.h"

#include "model/model.h"
#include "shortcuts/modifier_flags.h"
#include "ui/window_state_editing.h"

#include <utility>

namespace panewright {
namespace {

/// What a default button answers where buttons have no numbers of their own.
constexpr int kAlertDefaultReturn = 1;

bool isYes(int response) {
    return response == kAlertFirstButtonReturn || response == kAlertDefaultReturn;
}

} // namespace

std::shared_ptr<EditShortcutViewController>
EditShortcutViewController::create(const Services& services) {
    return std::shared_ptr<EditShortcutViewController>(new EditShortcutViewController(services));
}

EditShortcutViewController::EditShortcutViewController(const Services& services)
    : PopoverController(services.shared), alerts_(services.alerts), views_(services.views),
      editing_(services.editing) {}

void EditShortcutViewController::loadViewSafely() {
    if (!view_) {
        view_ = views_.makeEditShortcutView(*this);
        viewDidLoad();
    }
}

void EditShortcutViewController::setWindowState(const std::shared_ptr<WindowState>& state) {
    question_.release();
    shortcutRecorder().resignFirstResponder(); // a recording belongs to the state before
    keepWindowState(state);
    view_->setWindowStateName(state ? state->windowStateName().value_or("") : "");
    view_->setContext(state ? contextOf(state) : "");
    view_->setUpdateWindowStateEnabled(state && !state->isDefault()); // which follows the display
    showShortcut(state ? state->keyEvent().get() : nullptr);
}

std::string EditShortcutViewController::contextOf(const std::shared_ptr<WindowState>& state) const {
    const auto& text = services().text;
    const auto key = services().model.keyOfWindowState(state);
    if (key == kDefaultsKey) {
        return text.localized("Built in, active for all applications");
    }
    if (key == kGlobalsKey) {
        return text.localized("Active for all applications");
    }
    return onlyActiveFor(state->appName().value_or(key.value_or("")));
}

std::optional<std::string> EditShortcutViewController::applicationOfShortcut() const {
    auto key = services().model.keyOfWindowState(windowState());
    return key && appliesEverywhere(*key) ? std::nullopt : key;
}

void EditShortcutViewController::abandon() {
    question_.release();
    editing_.abandonEditingWindowState();
}

void EditShortcutViewController::save() {
    const auto name = enteredName();
    if (!name) {
        return;
    }
    const auto state = windowState();
    state->setWindowStateName(*name);
    if (view_->updateWindowState()) {
        state->setOriginalWindowRect(newOriginalWindowRect_);
        state->setOriginalQuartzDisplayBounds(newQuartzDisplayBounds_);
        state->setWindowStateImage(nullptr); // the one with the icon stays
    }
    editing_.finishEditingWindowState();
    services().tracking.trackEvent(kSaveEditsToWindowStateEvent,
                                   state->attributesForTracking(services().shortcutText));
    setWindowState(nullptr);
}

void EditShortcutViewController::cancel() {
    const auto state = windowState();
    editing_.finishEditingWindowState();
    services().tracking.trackEvent(kCancelEditWindowStateEvent,
                                   state ? state->attributesForTracking(services().shortcutText)
                                         : EventAttributes{});
    setWindowState(nullptr);
}

void EditShortcutViewController::deleteWindowState(std::uint64_t modifierFlags) {
    if (!windowState()) {
        return;
    }
    if (modifierFlags & kShiftFlag) {
        removeFromStore();
        setWindowState(nullptr);
        return;
    }
    const auto& text = services().text;
    services().beeper.beep();
    question_ = alerts_.ask(
        {.messageText = text.localized("Are you sure you want to delete this window state?"),
         .style = AlertStyle::kCritical,
         .buttons = {text.localized("Yes"), text.localized("No")}},
        [this](int response) { questionAnswered(response); });
}

void EditShortcutViewController::questionAnswered(int response) {
    if (!isYes(response)) {
        return;
    }
    const auto state = removeFromStore();
    services().tracking.trackEvent(kDeleteWindowStateEvent,
                                   state->attributesForTracking(services().shortcutText));
    setWindowState(nullptr);
}

/// Lets go of the state before: one that leaves the store by other hands closes the popover.
std::shared_ptr<WindowState> EditShortcutViewController::removeFromStore() {
    auto state = windowState();
    keepWindowState(nullptr);
    editing_.removeWindowState(state);
    editing_.finishEditingWindowState();
    return state;
}

} // namespace panewright
