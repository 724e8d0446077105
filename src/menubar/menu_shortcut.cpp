#include "menubar/menu_shortcut.h"

#include "shortcuts/carbon_key_event.h"
#include "ui/shortcut_remark.h"

namespace panewright {

MenuShortcut menuShortcutOf(const CarbonKeyEvent& key, const ShortcutText& text) {
    return {.keyCode = key.keyCode(),
            .keyEquivalent = text.stringForRawKeyCode(static_cast<std::uint16_t>(key.keyCode())),
            .keyEquivalentModifierMask = key.modifierFlags(),
            .text = key.presentableKeyboardShortcut(text),
            .words = text.shortcutInWords(key.keyCode(), key.modifierFlags())};
}

void markTakenShortcuts(const Menu& menu, const HotKeys& hotKeys) {
    for (const auto& item : menu.items()) {
        auto& shortcut = item->shortcut;
        shortcut.isTaken =
            !shortcut.text.empty() &&
            isShortcutTaken(hotKeys, shortcut.keyCode, shortcut.keyEquivalentModifierMask);
    }
}

} // namespace panewright
