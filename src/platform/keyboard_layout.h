#pragma once

#include <cstdint>
#include <string>

namespace panewright {

/// The keyboard layout that the user types ASCII with, as it is at each call.
///
/// Main thread only.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;

    /// The text (UTF-8) that stands on the key: what it types without modifiers, for a dead key its
    /// accent alone, for the keys of volume and input methods a name. Empty for a key that types
    /// nothing else, such as a function key.
    virtual std::string displayText(std::uint16_t virtualKeyCode) const = 0;

    /// A hot key in the words that stand on its keys, such as "Ctrl+Alt+F5". `modifiers` are in the
    /// hot-key form (platform/hot_keys.h).
    virtual std::string inWords(std::uint32_t virtualKeyCode, std::uint32_t modifiers) const = 0;

    /// One of these modifiers, such as "Alt" for kHotKeyOption.
    virtual std::string modifierInWords(std::uint32_t modifier) const = 0;
};

} // namespace panewright
