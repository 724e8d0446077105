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
};

} // namespace panewright
