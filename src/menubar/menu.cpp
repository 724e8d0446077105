#include "menubar/menu.h"

#include <algorithm>

namespace panewright {
namespace {

/// Unsigned, so that a tag below the range is far above it.
bool isIn(const Range& range, std::int64_t tag) {
    const auto number = static_cast<std::uint64_t>(tag);
    return range.location <= number && number - range.location < range.length;
}

} // namespace

Menu::~Menu() {
    for (const auto& item : items_) {
        item->menu = nullptr;
    }
}

void Menu::insertItems(const MenuItems& items, std::size_t index) {
    for (const auto& item : items) {
        item->menu = this;
    }
    const auto place = std::min(index, items_.size());
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(place), items.begin(), items.end());
}

void Menu::removeItems(const std::function<bool(const MenuItem&)>& isMeant) {
    std::erase_if(items_, [&](const std::shared_ptr<MenuItem>& item) {
        const bool goes = isMeant(*item);
        if (goes) {
            item->menu = nullptr;
        }
        return goes;
    });
}

void setAllItemsEnabled(Menu& menu, bool enabled) {
    for (const auto& item : menu.items()) {
        if (!item->isSeparator) {
            item->isEnabled = enabled;
        }
    }
}

void setEnabled(Menu& menu, bool enabled, const Range& forItemsWithTagsInRange) {
    for (const auto& item : menu.items()) {
        if (isIn(forItemsWithTagsInRange, item->tag)) {
            item->isEnabled = enabled;
        }
    }
}

void removeItemsWithTagsInRange(Menu& menu, const Range& range) {
    menu.removeItems([&](const MenuItem& item) { return isIn(range, item.tag); });
}

void removeItemsWithTag(Menu& menu, std::int64_t tag) {
    menu.removeItems([&](const MenuItem& item) { return item.tag == tag; });
}

std::shared_ptr<MenuItem> itemWithTitle(std::string title) {
    auto item = std::make_shared<MenuItem>();
    item->title = std::move(title);
    return item;
}

std::shared_ptr<MenuItem> separatorItemWithTag(std::int64_t tag) {
    auto item = std::make_shared<MenuItem>();
    item->isSeparator = true;
    item->tag = tag;
    return item;
}

void removeFromContainingMenu(MenuItem& item) {
    if (item.menu) {
        item.menu->removeItems([&](const MenuItem& each) { return &each == &item; });
    }
}

} // namespace panewright
