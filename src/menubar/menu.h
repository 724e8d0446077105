#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace panewright {

/// One line of a menu. Texts are UTF-8 and in the user's language.
struct MenuItem {
    /// With "&" before the letter that chooses it ("&&" for the sign itself).
    std::string title;
    /// Null for an item that only says something.
    std::function<void()> action;
    /// Whether the action can be chosen now.
    bool isEnabled = true;
    /// A check mark, for items that are on or off.
    bool isCheckable = false;
    bool isChecked = false;
    bool isSeparator = false;
    /// The shortcut that the item shows, the key's name without its modifiers; empty for none.
    std::string keyEquivalent;
    /// In the application's form.
    std::uint64_t keyEquivalentModifierMask = 0;
    /// Whether another program holds that shortcut.
    bool isKeyEquivalentTaken = false;

    static std::shared_ptr<MenuItem> separatorItem() {
        auto item = std::make_shared<MenuItem>();
        item->isSeparator = true;
        return item;
    }
};

/// What a menu shows, from top to bottom.
struct Menu {
    std::vector<std::shared_ptr<MenuItem>> items;
};

} // namespace panewright
