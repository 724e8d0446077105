#include "menubar/status_menu.h"

#include "base/text_with.h"
#include "geometry/quartz_display.h"
#include "menubar/applicable_window_states.h"
#include "menubar/hot_key_collisions.h"
#include "model/model.h"
#include "shortcuts/modifier_flags.h"
#include "ui/pnr_utils.h"
#include "ui/shortcut_remark.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// How long the states stay after the menu has closed: a choice may still be on its way.
constexpr auto kCleanUpDelay = 500ms;

void sortByName(WindowStateArray& states) {
    std::ranges::stable_sort(states, {}, &WindowState::windowStateName);
}

/// Whether the key of the store stands for an application and has states.
bool hasApplicationStates(const WindowStates::value_type& entry) {
    return !appliesEverywhere(entry.first) && !entry.second->empty();
}

void append(MenuItems& items, const MenuItems& more) {
    items.insert(items.end(), more.begin(), more.end());
}

} // namespace

StatusMenu::StatusMenu(const Services& services, Actions actions, FixedMenuItems fixedItems)
    : services_(services), actions_(std::move(actions)), fixed_(std::move(fixedItems)),
      images_(services.images, services.icons) {
    menu_->insertItems(fixed_.before, 0);
    menu_->insertItems(fixed_.after, menu_->items().size());
}

void StatusMenu::menuNeedsUpdate(const StatusItemClick& click) {
    destroyMenuTimer_ = {};
    services_.focus.updateApplicationTracking();
    rebuildMenuFlat(click.isRightButton || (click.modifierFlags & kOptionFlag) != 0);
    actions_.addEventHandlers();
    markTakenShortcuts();
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
    images_.forgetIcons();
    MenuItems section{separatorItemWithTag(0), helpItem(), separatorItemWithTag(0)};
    append(section, quickItems());
    section.push_back(separatorItemWithTag(0));
    addApplications(section, flat);
    section.push_back(separatorItemWithTag(0));
    for (const auto& item : section) {
        item->tag = kInsertedItemTag;
    }
    menu_->insertItems(section, kInsertedItemIndex);
    showStoreTrouble(kInsertedItemIndex + section.size());
    fixed_.moveToNextDisplayItem->isEnabled =
        QuartzDisplay::screens(services_.displays).size() != 1;
}

void StatusMenu::showStoreTrouble(std::size_t index) {
    removeItemsWithTag(*menu_, kStoreTroubleTag);
    const auto line = services_.storeTroubles.line();
    if (line.empty()) {
        return;
    }
    auto item = titleItem(line);
    item->action = [this](const MenuChoice&) { services_.storeTroubles.explain(); };
    const MenuItems group{item, separatorItemWithTag(0)};
    for (const auto& each : group) {
        each->tag = kStoreTroubleTag;
    }
    menu_->insertItems(group, index);
}

/// The states that apply to the frontmost application, by title, each with its hot key unless that
/// is another one's.
MenuItems StatusMenu::quickItems() {
    if (const auto defaults = services_.model.defaultWindowStates()) {
        sortByName(*defaults); // the store's own array: the order is kept
    }
    MenuItems items;
    std::unordered_map<std::uint64_t, std::shared_ptr<MenuItem>> holders;
    for (const auto& states :
         applicableWindowStates(services_.model, services_.focus.currentApplication())) {
        for (const auto& state : states) {
            auto item = stateItem(state, images_.windowStateImage(state));
            if (const auto& key = state->keyEvent()) {
                item->shortcut = shortcutOf(*key);
            }
            auto& holder = holders[combinationNumber(*state)];
            if (holder) {
                holder->shortcut = {};
            }
            holder = item;
            items.push_back(std::move(item));
        }
    }
    std::ranges::stable_sort(
        items, {}, [](const auto& item) -> const auto& { return item->title; });
    return items;
}

void StatusMenu::addApplications(MenuItems& section, bool flat) {
    const auto states = services_.model.allWindowStates();
    if (!states || std::ranges::none_of(*states, hasApplicationStates)) {
        return;
    }
    section.push_back(titleItem(services_.text.localized("All saved window states")));
    flat ? addFlat(section, *states) : addGrouped(section, *states);
}

void StatusMenu::addFlat(MenuItems& section, const WindowStates& states) {
    WindowStateArray all;
    for (const auto& entry : states) {
        if (hasApplicationStates(entry)) {
            all.insert(all.end(), entry.second->begin(), entry.second->end());
        }
    }
    sortByName(all);
    section.reserve(section.size() + all.size() + 1);
    for (const auto& state : all) {
        section.push_back(stateItem(state, images_.appIconAndWindowStateImage(state)));
    }
}

/// An application whose first state knows no name for it is left out.
void StatusMenu::addGrouped(MenuItems& section, const WindowStates& states) {
    std::vector<std::shared_ptr<WindowStateArray>> applications;
    for (const auto& entry : states) {
        if (hasApplicationStates(entry) && entry.second->front()->appName()) {
            applications.push_back(entry.second);
        }
    }
    const auto nameOf = [](const auto& array) -> const auto& {
        return *array->front()->appName();
    };
    std::ranges::stable_sort(applications, [&](const auto& a, const auto& b) {
        return services_.text.localizedCaseInsensitiveCompare(nameOf(a), nameOf(b)) < 0;
    });
    for (const auto& array : applications) {
        sortByName(*array); // the store's own array: the order is kept
        section.push_back(itemWithMenuForKeyEvents(*array, false));
    }
}

std::shared_ptr<MenuItem> StatusMenu::itemWithMenuForKeyEvents(const WindowStateArray& states,
                                                               bool includeAppBundle) {
    auto& first = *states.front();
    auto item = titleItem(first.appName().value_or(""));
    item->image = services_.images.resized(images_.appIconImage(first), kAppIconSize);
    item->submenu = std::make_shared<Menu>();
    MenuItems items;
    items.reserve(states.size() + 1);
    if (includeAppBundle) {
        items.push_back(titleItem(first.appBundleId().value_or("")));
    }
    for (const auto& state : states) {
        items.push_back(stateItem(state, images_.windowStateImage(state)));
    }
    item->submenu->insertItems(items, 0);
    return item;
}

std::shared_ptr<MenuItem> StatusMenu::titleItem(std::string title) const {
    auto item = std::make_shared<MenuItem>();
    item->title = std::move(title);
    return item;
}

std::shared_ptr<MenuItem> StatusMenu::helpItem() const {
    auto item = titleItem(services_.text.localized("Option-Click to edit a shortcut"));
    item->toolTip =
        textWith(services_.text.localized("Option is the %@ key. Option-Shift-Click deletes."),
                 services_.shortcutText.modifierInWords(kOptionFlag));
    return item;
}

std::shared_ptr<MenuItem> StatusMenu::stateItem(const std::shared_ptr<WindowState>& state,
                                                ImagePtr image) {
    auto item = titleItem(state->windowStateName().value_or(""));
    item->image = std::move(image);
    item->representedObject = state;
    item->action = [this, weak = std::weak_ptr(item)](const MenuChoice& choice) {
        if (const auto clicked = weak.lock()) {
            onMenuItemClicked(*clicked, choice);
        }
    };
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

void StatusMenu::showMoveToNextDisplayKey(const CarbonKeyEvent* key) {
    fixed_.moveToNextDisplayItem->shortcut = key ? shortcutOf(*key) : MenuShortcut{};
}

MenuShortcut StatusMenu::shortcutOf(const CarbonKeyEvent& key) const {
    const auto& text = services_.shortcutText;
    return {.keyCode = key.keyCode(),
            .keyEquivalent = text.stringForRawKeyCode(static_cast<std::uint16_t>(key.keyCode())),
            .keyEquivalentModifierMask = key.modifierFlags(),
            .text = key.presentableKeyboardShortcut(text),
            .words = text.shortcutInWords(key.keyCode(), key.modifierFlags())};
}

/// To be called after the hot keys are installed, when the desktop need not be asked any more.
void StatusMenu::markTakenShortcuts() {
    for (const auto& item : menu_->items()) {
        auto& shortcut = item->shortcut;
        shortcut.isTaken =
            !shortcut.text.empty() && isShortcutTaken(services_.hotKeys, shortcut.keyCode,
                                                      shortcut.keyEquivalentModifierMask);
    }
}

} // namespace panewright
