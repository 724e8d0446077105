#pragma once

#include "desktop/shared/native_key_codes.h"
#include "platform/key_event.h"

#include <QKeyEvent>

#include <cstdint>
#include <optional>

namespace panewright {

/// What is held, in the application's form: Alt is Option, Super is Command.
std::uint64_t modifierFlagsOf(Qt::KeyboardModifiers modifiers);

/// What is held now, as the window system says.
std::uint64_t heldModifierFlags();

/// Whether the event is of a modifier or lock key, whatever the layout makes of that key (such as
/// one that switches to another layout).
bool isModifierKey(const QKeyEvent& event, const NativeKeyCodes& keyCodes);

/// Nil for a key without a virtual key code.
std::optional<KeyEvent> keyEventOf(const QKeyEvent& event, const NativeKeyCodes& keyCodes);

} // namespace panewright
