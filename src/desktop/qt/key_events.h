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

/// Tells which presses a held key makes. The toolkit looks for such a press when the release before
/// it comes, so QKeyEvent::isAutoRepeat() misses those that arrive later.
class KeyRepeats {
public:
    /// To be called with each press and release of a widget's keys.
    bool isRepeat(const QKeyEvent& event);

private:
    quint32 releasedKey_ = 0;
    /// The X server's time: a repeated press has that of its release.
    quint64 releaseTime_ = 0;
};

/// Nil for a key without a virtual key code.
std::optional<KeyEvent> keyEventOf(const QKeyEvent& event, const NativeKeyCodes& keyCodes);

} // namespace panewright
