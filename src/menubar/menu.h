#pragma once

#include "base/geometry.h"
#include "base/image.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace panewright {

class Menu;
class WindowState;

/// How an item was chosen.
struct MenuChoice {
    /// What was held at that moment, in the application's form; none where that is not known.
    std::uint64_t modifierFlags = 0;
};

/// The hot key that does the same as an item, as the item shows it. Texts are UTF-8.
struct MenuShortcut {
    /// Virtual key code.
    std::uint64_t keyCode = 0;
    /// The key's name in the keyboard layout, without modifiers. Empty for no shortcut and for a
    /// key that types nothing; a blank for Space.
    std::string keyEquivalent;
    /// In the application's form.
    std::uint64_t keyEquivalentModifierMask = 0;
    /// What a row shows, such as "⌥2"; empty for no shortcut.
    std::string text;
    /// The same for whoever hears it, such as "Alt+2".
    std::string words;
    /// Whether another program holds it, so that pressing it does something else.
    bool isTaken = false;

    friend bool operator==(const MenuShortcut&, const MenuShortcut&) = default;
};

/// One line of a menu. Texts are UTF-8 and in the user's language.
struct MenuItem {
    /// Free for whoever fills the menu.
    std::int64_t tag = 0;
    /// Shown as it is: no sign in it has a meaning. It may hold anything, line ends too.
    std::string title;
    /// Null for none. Shown in its own size.
    ImagePtr image;
    /// The state that the item stands for; null for none.
    std::shared_ptr<WindowState> representedObject;
    /// What opens beside the item; null for an item without one.
    std::shared_ptr<Menu> submenu;
    /// Empty for an item that only says something.
    std::function<void(const MenuChoice&)> action;
    /// See canBeChosen().
    bool isEnabled = true;
    /// A check mark, for items that are on or off.
    bool isCheckable = false;
    bool isChecked = false;
    bool isSeparator = false;
    MenuShortcut shortcut;
    /// Empty for none.
    std::string toolTip;
    /// The menu that holds the item, which keeps this itself; null while none does.
    Menu* menu = nullptr;

    /// Whether the item does something, or opens, now. One that cannot is shown disabled.
    bool canBeChosen() const { return isEnabled && (action || submenu); }
};

using MenuItems = std::vector<std::shared_ptr<MenuItem>>;

/// What a menu shows, from top to bottom. An item is in one menu at most, once.
class Menu {
public:
    Menu() = default;
    ~Menu();
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    const MenuItems& items() const { return items_; }

    /// Puts the items before the one at `index`, at the end if there is none there.
    void insertItems(const MenuItems& items, std::size_t index);

    /// Removes each item that `isMeant` is true of.
    void removeItems(const std::function<bool(const MenuItem&)>& isMeant);

private:
    MenuItems items_;
};

// What can be done to all items of a menu, or to those with certain tags. Of a range, `location`
// belongs to it and the last one is `location + length - 1`.

/// Separators stay as they are.
void setAllItemsEnabled(Menu& menu, bool enabled);
void setEnabled(Menu& menu, bool enabled, const Range& forItemsWithTagsInRange);
void removeItemsWithTagsInRange(Menu& menu, const Range& range);
void removeItemsWithTag(Menu& menu, std::int64_t tag);

std::shared_ptr<MenuItem> separatorItemWithTag(std::int64_t tag);
/// One that only says something.
std::shared_ptr<MenuItem> itemWithTitle(std::string title);

/// Nothing for an item that is in no menu.
void removeFromContainingMenu(MenuItem& item);

} // namespace panewright
