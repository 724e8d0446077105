#include "ui/shortcut_popover_controller.h"

#include "model/window_state.h"
#include "shortcuts/carbon_event_manager.h"
#include "shortcuts/virtual_key_codes.h"
#include "ui/format_text.h"
#include "ui/shortcut_remark.h"

namespace panewright {

ShortcutPopoverController::ShortcutPopoverController(const Services& services)
    : services_(services), recorder_(services.shortcutText, services.beeper) {
    localizeLabels(recorder_, services_.text);
}

Popover* ShortcutPopoverController::popover() const {
    auto* view = loadedView();
    return view ? &view->popover() : nullptr;
}

void ShortcutPopoverController::viewDidLoad() {
    recorder_.setDelegate(weak_from_this());
    recorder_.setRequiresModifierFlags(false);
}

std::optional<std::string> ShortcutPopoverController::enteredName() const {
    auto name = loadedView()->windowStateName();
    if (services_.text.trimmedOfWhitespace(name).empty() || !windowState_) {
        services_.beeper.beep();
        return std::nullopt;
    }
    return name;
}

bool ShortcutPopoverController::keyDown(const KeyEvent& event) {
    if (recorder_.performKeyEquivalent(event)) {
        return true;
    }
    if (event.keyCode == kEscapeKeyCode) {
        abandon();
        return true;
    }
    return false;
}

void ShortcutPopoverController::closeRequested() {
    recorder_.resignFirstResponder(); // which ends a recording
    abandon();
}

void ShortcutPopoverController::updateShortcutRemark() {
    if (recorder_.isRecording()) {
        return;
    }
    if (recorder_.keyCode() == QFShortcutRecorder::kNoKeyCode) {
        loadedView()->setShortcutRemark("");
        return;
    }
    const auto keyCode = static_cast<std::uint64_t>(recorder_.keyCode());
    const auto flags = recorder_.modifierFlags();
    auto remark = shortcutRemark(services_.hotKeys, services_.text, keyCode, flags);
    const auto others = otherUsesRemark(
        services_.model, services_.text,
        {CarbonEventManager::keyForKeyCode(keyCode, flags), applicationOfShortcut(), windowState_});
    remark += remark.empty() || others.empty() ? "" : "\n";
    loadedView()->setShortcutRemark(remark + others);
}

void ShortcutPopoverController::shortcutRecorderSetFlags(QFShortcutRecorder& /*recorder*/,
                                                         std::uint64_t flags,
                                                         std::uint16_t andKeyCode) {
    if (windowState_) {
        windowState_->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(andKeyCode, flags));
    }
    updateShortcutRemark();
}

void ShortcutPopoverController::shortcutRecorderDidClearFlags(QFShortcutRecorder& /*recorder*/,
                                                              std::uint64_t /*flags*/,
                                                              std::uint16_t /*andKeyCode*/) {
    if (windowState_) {
        windowState_->setKeyEvent(nullptr);
    }
    loadedView()->setShortcutRemark("");
}

void ShortcutPopoverController::shortcutRecorderRefusesKey(QFShortcutRecorder& /*recorder*/,
                                                           bool refuses) {
    loadedView()->setShortcutRemark(refuses ? refusedKeyRemark(services_.text) : "");
}

} // namespace panewright
