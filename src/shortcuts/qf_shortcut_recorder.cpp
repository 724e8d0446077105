#include "shortcuts/qf_shortcut_recorder.h"

#include "shortcuts/modifier_flags.h"
#include "shortcuts/virtual_key_codes.h"

namespace panewright {
namespace {

constexpr double kButtonMargin = 4;
constexpr double kButtonDistance = 16;

/// The buttons stand at the right edge, in the middle of the height.
Rect buttonRect(Size viewSize, double fromRight) {
    constexpr double kSize = QFShortcutRecorder::kButtonSize;
    return {viewSize.width - (kSize + kButtonMargin) - fromRight, (viewSize.height - kSize) / 2,
            kSize, kSize};
}

bool holds(const std::optional<Rect>& button, Point location) {
    return button && contains(*button, location);
}

} // namespace

void QFShortcutRecorder::setKeyCode(std::int64_t keyCode, std::uint64_t andModifierFlags) {
    shortcut_ = {andModifierFlags, keyCode,
                 text_.stringFromKeyCode(static_cast<std::uint16_t>(keyCode), andModifierFlags)};
    setNeedsDisplay();
}

void QFShortcutRecorder::clear() {
    shortcut_ = {};
    previous_ = {};
    setNeedsDisplay();
}

void QFShortcutRecorder::pushKeyboardShortcut() {
    if (isRecording_) {
        return;
    }
    if (shortcut_.keyCode >= 0 || shortcut_.modifierFlags != 0) {
        tellDidClear();
    }
    previous_ = std::exchange(shortcut_, {});
}

void QFShortcutRecorder::popKeyboardShortcut() {
    if (previous_.modifierFlags == 0 && previous_.keyCode == kNoKeyCode) {
        shortcut_ = {};
        return;
    }
    shortcut_ = previous_;
    tellSet();
    previous_ = {};
}

void QFShortcutRecorder::clearKeyboardShortcut() {
    tellDidClear();
    previous_ = {};
    shortcut_ = {};
}

void QFShortcutRecorder::flagsChanged(std::uint64_t modifierFlags) {
    if (!isRecording_) {
        return;
    }
    shortcut_.mutableLabel = modifierSymbols(modifierFlags);
    shortcut_.modifierFlags = modifierFlags & kShortcutModifiers;
    setNeedsDisplay();
}

bool QFShortcutRecorder::performKeyEquivalent(const KeyEvent& event) {
    if (!view_ || !view_->isFirstResponder()) {
        return false;
    }
    if (!isRecording_) {
        if (event.keyCode == kDeleteKeyCode) {
            clearKeyboardShortcut();
        } else if (event.keyCode == kSpaceKeyCode) {
            startRecording();
        } else {
            return false;
        }
        setNeedsDisplay();
        return true;
    }
    const bool cancels =
        event.keyCode == kEscapeKeyCode || (event.keyCode == kTabKeyCode && !captureTabKey_);
    const bool refused = !cancels && needsModifiers();
    if (refused) {
        beeper_.beep();
    }
    if (cancels || refused) {
        cancelRecording();
    } else {
        takeKey(event);
    }
    return !refused;
}

void QFShortcutRecorder::keyWithoutCode() {
    if (isRecording_) {
        beeper_.beep();
        tellRefusesKey(true);
    }
}

void QFShortcutRecorder::startRecording() {
    pushKeyboardShortcut();
    isRecording_ = true;
}

void QFShortcutRecorder::cancelRecording() {
    endRecording();
    popKeyboardShortcut();
    setNeedsDisplay();
}

/// What was saved when the recording began stays: a click where the clear button was clears the new
/// shortcut.
void QFShortcutRecorder::takeKey(const KeyEvent& event) {
    shortcut_.mutableLabel = text_.stringFromKeyCode(event.keyCode, event.modifierFlags);
    shortcut_.keyCode = event.keyCode;
    endRecording();
    setNeedsDisplay();
    tellSet();
}

void QFShortcutRecorder::mouseDown(Point location, Size viewSize) {
    if (view_ && !view_->isFirstResponder()) {
        view_->makeFirstResponder();
    }
    if (holds(clearButton(viewSize), location)) {
        mouseDownInClear_ = true;
    } else if (holds(snapBackButton(viewSize), location)) {
        mouseDownInSnapBack_ = true;
    } else {
        startRecording();
    }
    setNeedsDisplay();
}

void QFShortcutRecorder::mouseUp(Point location, Size viewSize) {
    if (mouseDownInClear_ && holds(clearButton(viewSize), location)) {
        endRecording();
        clearKeyboardShortcut();
    }
    if (mouseDownInSnapBack_ && holds(snapBackButton(viewSize), location)) {
        endRecording();
        popKeyboardShortcut();
    }
    mouseDownInClear_ = false;
    mouseDownInSnapBack_ = false;
    setNeedsDisplay();
}

bool QFShortcutRecorder::resignFirstResponder() {
    endRecording();
    setNeedsDisplay();
    return true;
}

const std::string& QFShortcutRecorder::shownLabel() const {
    if (!shortcut_.mutableLabel.empty()) {
        return shortcut_.mutableLabel;
    }
    return isRecording_ ? waitingForKeysLabel_ : defaultLabel_;
}

std::string QFShortcutRecorder::shortcutInWords() const {
    return shortcut_.keyCode == kNoKeyCode
               ? ""
               : text_.shortcutInWords(static_cast<std::uint64_t>(shortcut_.keyCode),
                                       shortcut_.modifierFlags);
}

const TextAttributes& QFShortcutRecorder::shownAttributes() const {
    return shortcut_.mutableLabel.empty() && isRecording_ ? waitingForKeysAttributes_
                                                          : defaultAttributes_;
}

std::optional<Rect> QFShortcutRecorder::clearButton(Size viewSize) const {
    if (previous_.mutableLabel.empty()) {
        return std::nullopt;
    }
    return buttonRect(viewSize, 0);
}

std::optional<Rect> QFShortcutRecorder::snapBackButton(Size viewSize) const {
    if (!isRecording_) {
        return std::nullopt;
    }
    return buttonRect(viewSize, previous_.mutableLabel.empty() ? 0 : kButtonDistance);
}

void QFShortcutRecorder::endRecording() {
    isRecording_ = false;
    tellRefusesKey(false);
}

void QFShortcutRecorder::tellRefusesKey(bool refuses) {
    if (std::exchange(refusesKey_, refuses) == refuses) {
        return;
    }
    if (const auto delegate = delegate_.lock()) {
        delegate->shortcutRecorderRefusesKey(*this, refuses);
    }
}

void QFShortcutRecorder::tellSet() {
    if (const auto delegate = delegate_.lock()) {
        delegate->shortcutRecorderSetFlags(*this, shortcut_.modifierFlags,
                                           static_cast<std::uint16_t>(shortcut_.keyCode));
    }
}

void QFShortcutRecorder::tellDidClear() {
    if (const auto delegate = delegate_.lock()) {
        delegate->shortcutRecorderDidClearFlags(*this, shortcut_.modifierFlags,
                                                static_cast<std::uint16_t>(shortcut_.keyCode));
    }
}

void QFShortcutRecorder::setNeedsDisplay() {
    if (view_) {
        view_->setNeedsDisplay();
    }
}

} // namespace panewright
