#pragma once

#include "platform/keyboard_layout.h"
#include "platform/text_services.h"

#include <cstdint>
#include <string>

namespace panewright {

/// The symbols of the modifiers in the order Control, Option, Shift, Command. Flags are in the
/// application's form; bits of other modifiers show nothing.
std::string modifierSymbols(std::uint64_t modifierFlags);

/// The text that shows a shortcut: the symbols of its modifiers, then the key's name. UTF-8.
class ShortcutText {
public:
    ShortcutText(const KeyboardLayout& layout, const TextServices& text)
        : layout_(layout), text_(text) {}

    /// Any key code; one past 16 bits has no name of its own and is named by its low 16 bits.
    std::string presentableKeyboardShortcut(std::uint64_t keyCode,
                                            std::uint64_t modifierFlags) const;

    std::string stringFromKeyCode(std::uint16_t keyCode, std::uint64_t andModifierFlags) const;

    /// The key's name in the current keyboard layout, upper-cased; empty for a key that types
    /// nothing.
    std::string stringForRawKeyCode(std::uint16_t keyCode) const;

    /// The shortcut for whoever hears it, such as "Alt+2".
    std::string shortcutInWords(std::uint64_t keyCode, std::uint64_t modifierFlags) const;

    /// What people call the modifier, such as "Alt" for Option.
    std::string modifierInWords(std::uint64_t modifierFlag) const;

private:
    const KeyboardLayout& layout_;
    const TextServices& text_;
};

} // namespace panewright
