#include "menubar/status_menu.h"

#include "base/text_with.h"
#include "geometry/quartz_display.h"
#include "menubar/menu_shortcut.h"
#include "shortcuts/modifier_flags.h"

#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// How long the states stay after the menu has closed: a choice may still be on its way.
constexpr auto kCleanUpDelay = 500ms;

void append(MenuItems& items, const MenuItems& more) {
    items.insert(items.end(), more.begin(), more.end());
}

} // namespace

StatusMenu::StatusMenu(const Services& services, Actions actions, FixedMenuItems fixedItems)
    : services_(services), actions_(std::move(actions)), fixed_(std::move(fixedItems)),
      stateItems_(
          {services.icons, services.images, services.text, services.shortcutText, services.model},
          [this](MenuItem& item, const MenuChoice& choice) { onMenuItemClicked(item, choice); }) {
    menu_->insertItems(fixed_.before, 0);
    menu_->insertItems(fixed_.after, menu_->items().size());
}

void StatusMenu::menuNeedsUpdate(const StatusItemClick& click) {
    destroyMenuTimer_ = {};
    services_.focus.updateApplicationTracking();
    rebuildMenuFlat(click.isRightButton || (click.modifierFlags & kOptionFlag) != 0);
    actions_.addEventHandlers();
    markTakenShortcuts(*menu_, services_.hotKeys);
}

void StatusMenu::menuDidClose() {
    destroyMenuTimer_ = services_.mainLoop.after(kCleanUpDelay, [this] { removeMenuItems(); });
}

void StatusMenu::removeMenuItems() {
    destroyMenuTimer_ = {};
    removeItemsWithTag(*menu_, kInsertedItemTag);
}

void StatusMenu::rebuildMenuFlat(bool flat) {
    services_.tracking.trackEvent(kOpenMenuEvent, {{"WasFlat", flat ? "1" : "0"}});
    removeItemsWithTag(*menu_, kInsertedItemTag);
    stateItems_.forgetIcons();
    MenuItems section{separatorItemWithTag(0), helpItem(), separatorItemWithTag(0)};
    append(section, stateItems_.quickItems(services_.focus.currentApplication()));
    section.push_back(separatorItemWithTag(0));
    append(section, stateItems_.applicationItems(flat));
    section.push_back(separatorItemWithTag(0));
    for (const auto& item : section) {
        item->tag = kInsertedItemTag;
    }
    menu_->insertItems(section, fixed_.before.size());
    showStoreTrouble(fixed_.before.size() + section.size());
    fixed_.showDisplayCount(QuartzDisplay::screens(services_.displays).size());
}

void StatusMenu::showStoreTrouble(std::size_t index) {
    removeItemsWithTag(*menu_, kStoreTroubleTag);
    const auto line = services_.storeTroubles.line();
    if (line.empty()) {
        return;
    }
    auto item = itemWithTitle(line);
    item->action = [this](const MenuChoice&) { services_.storeTroubles.explain(); };
    const MenuItems group{item, separatorItemWithTag(0)};
    for (const auto& each : group) {
        each->tag = kStoreTroubleTag;
    }
    menu_->insertItems(group, index);
}

std::shared_ptr<MenuItem> StatusMenu::helpItem() const {
    auto item = itemWithTitle(services_.text.localized("Option-Click to edit a shortcut"));
    item->toolTip =
        textWith(services_.text.localized("Option is the %@ key. Option-Shift-Click deletes."),
                 services_.shortcutText.modifierInWords(kOptionFlag));
    return item;
}

void StatusMenu::onMenuItemClicked(MenuItem& item, const MenuChoice& choice) {
    if (!(choice.modifierFlags & kOptionFlag)) {
        actions_.applyWindowStateToActiveWindow(item.representedObject);
    } else if (choice.modifierFlags & kShiftFlag) {
        actions_.removeWindowState(item.representedObject);
        removeFromContainingMenu(item);
    } else {
        actions_.editWindowState(item.representedObject);
    }
}

} // namespace panewright
