#pragma once

#include "desktop/x11/xkb_keymap.h"
#include "platform/keyboard_layout.h"

#include <optional>
#include <string>

namespace panewright {

/// Key names from the X server's keyboard mapping: the layout of XkbKeymap::asciiLayout().
class XkbKeyboardLayout : public KeyboardLayout {
public:
    explicit XkbKeyboardLayout(XkbKeymap& keymap) : keymap_(keymap) {}

    std::string displayText(std::uint16_t virtualKeyCode) const override;
    std::string inWords(std::uint32_t virtualKeyCode, std::uint32_t modifiers) const override;
    std::string modifierInWords(std::uint32_t modifier) const override;

private:
    /// The symbol that the key gives by itself; nil for none, or several.
    std::optional<xkb_keysym_t> symbolOf(std::uint32_t virtualKeyCode) const;

    XkbKeymap& keymap_;
};

} // namespace panewright
