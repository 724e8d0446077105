#pragma once

#include "desktop/x11/xkb_keymap.h"
#include "platform/keyboard_layout.h"

namespace panewright {

/// Key names from the X server's keyboard mapping: the layout of XkbKeymap::asciiLayout().
class XkbKeyboardLayout : public KeyboardLayout {
public:
    explicit XkbKeyboardLayout(XkbKeymap& keymap) : keymap_(keymap) {}

    std::string displayText(std::uint16_t virtualKeyCode) const override;

private:
    XkbKeymap& keymap_;
};

} // namespace panewright
