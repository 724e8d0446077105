#pragma once

#include "menubar/menu.h"
#include "platform/hot_keys.h"
#include "shortcuts/shortcut_text.h"

namespace panewright {

class CarbonKeyEvent;

/// The hot key as an item of a menu shows it.
MenuShortcut menuShortcutOf(const CarbonKeyEvent& key, const ShortcutText& text);

/// Marks the shortcuts in the menu that another program holds. To be called after the hot keys are
/// installed, when the desktop need not be asked any more.
void markTakenShortcuts(const Menu& menu, const HotKeys& hotKeys);

} // namespace panewright
