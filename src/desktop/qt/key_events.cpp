#include "desktop/qt/key_events.h"

#include "shortcuts/modifier_flags.h"
#include "shortcuts/virtual_key_codes.h"

#include <QGuiApplication>

namespace panewright {

std::uint64_t modifierFlagsOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? kShiftFlag : 0) |
           (modifiers & Qt::ControlModifier ? kControlFlag : 0) |
           (modifiers & Qt::AltModifier ? kOptionFlag : 0) |
           (modifiers & Qt::MetaModifier ? kCommandFlag : 0);
}

std::uint64_t heldModifierFlags() {
    return modifierFlagsOf(QGuiApplication::queryKeyboardModifiers());
}

bool isModifierKey(const QKeyEvent& event, const NativeKeyCodes& keyCodes) {
    const auto keyCode = keyCodes.virtualKeyCode(event.nativeScanCode(), event.nativeVirtualKey());
    if (keyCode && *keyCode >= kFirstModifierKeyCode && *keyCode <= kLastModifierKeyCode) {
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

bool KeyRepeats::isRepeat(const QKeyEvent& event) {
    if (event.type() == QEvent::KeyRelease) {
        releasedKey_ = event.nativeScanCode();
        releaseTime_ = event.timestamp();
    }
    return event.isAutoRepeat() ||
           (event.type() == QEvent::KeyPress && event.timestamp() != 0 &&
            event.timestamp() == releaseTime_ && event.nativeScanCode() == releasedKey_);
}

std::optional<KeyEvent> keyEventOf(const QKeyEvent& event, const NativeKeyCodes& keyCodes) {
    const auto keyCode = keyCodes.virtualKeyCode(event.nativeScanCode(), event.nativeVirtualKey());
    if (!keyCode) {
        return std::nullopt;
    }
    return KeyEvent{*keyCode, modifierFlagsOf(event.modifiers())};
}

} // namespace panewright
