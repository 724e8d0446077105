#include "ui/popover_controller.h"

#include "base/text_with.h"
#include "base/unicode.h"
#include "model/window_state.h"
#include "shortcuts/virtual_key_codes.h"

namespace panewright {

PopoverController::PopoverController(const Services& services)
    : ShortcutEntry(services), services_(services) {}

Popover* PopoverController::popover() const {
    auto* view = loadedView();
    return view ? &view->popover() : nullptr;
}

void PopoverController::viewDidLoad() {
    listenToRecorder();
    shortcutRecorder().setRequiresModifierFlags(false);
}

std::optional<std::string> PopoverController::enteredName() const {
    auto name = loadedView()->windowStateName();
    if (isBlank(name) || !windowState_) {
        services_.beeper.beep();
        return std::nullopt;
    }
    return name;
}

std::string PopoverController::onlyActiveFor(const std::string& applicationName) const {
    return textWith(services_.text.localized("Only active for %@"), applicationName);
}

bool PopoverController::keyDown(const KeyEvent& event) {
    if (shortcutRecorder().performKeyEquivalent(event)) {
        return true;
    }
    if (event.keyCode == kEscapeKeyCode) {
        abandon();
        return true;
    }
    return false;
}

void PopoverController::closeRequested() {
    shortcutRecorder().resignFirstResponder(); // which ends a recording
    abandon();
}

void PopoverController::keepShortcut(const std::shared_ptr<CarbonKeyEvent>& event) {
    if (windowState_) {
        windowState_->setKeyEvent(event);
    }
}

void PopoverController::showShortcutRemark(const std::string& text) {
    loadedView()->setShortcutRemark(text);
}

} // namespace panewright
