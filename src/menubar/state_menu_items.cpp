#include "menubar/state_menu_items.h"

#include "menubar/applicable_window_states.h"
#include "menubar/menu_shortcut.h"
#include "model/model.h"

#include <algorithm>
#include <utility>

namespace panewright {
namespace {

void sortByName(WindowStateArray& states) {
    std::ranges::stable_sort(states, {}, &WindowState::windowStateName);
}

/// Whether the key of the store stands for an application and has states.
bool hasApplicationStates(const WindowStates::value_type& entry) {
    return !appliesEverywhere(entry.first) && !entry.second->empty();
}

} // namespace

StateMenuItems::StateMenuItems(const Services& services, OnClick clicked)
    : services_(services), clicked_(std::move(clicked)), images_(services.images, services.icons) {}

MenuItems StateMenuItems::quickItems(const std::optional<RunningApplication>& frontmost) {
    if (const auto defaults = services_.model.defaultWindowStates()) {
        sortByName(*defaults); // the store's own array: the order is kept
    }
    const auto states = applicableWindowStates(services_.model, frontmost);
    MenuItems items;
    items.reserve(states.size());
    for (const auto& state : states) {
        items.push_back(stateItem(state, images_.windowStateImage(state)));
    }
    for (const auto& [number, place] : placesWithoutCollisions(states)) {
        if (const auto& key = states[place]->keyEvent()) {
            items[place]->shortcut = menuShortcutOf(*key, services_.shortcutText);
        }
    }
    std::ranges::stable_sort(
        items, {}, [](const auto& item) -> const auto& { return item->title; });
    return items;
}

MenuItems StateMenuItems::applicationItems(bool flat) {
    const auto states = services_.model.allWindowStates();
    if (!states || std::ranges::none_of(*states, hasApplicationStates)) {
        return {};
    }
    auto items = flat ? flatItems(*states) : groupedItems(*states);
    items.insert(items.begin(), itemWithTitle(services_.text.localized("All saved window states")));
    return items;
}

MenuItems StateMenuItems::flatItems(const WindowStates& states) {
    WindowStateArray all;
    for (const auto& entry : states) {
        if (hasApplicationStates(entry)) {
            all.insert(all.end(), entry.second->begin(), entry.second->end());
        }
    }
    sortByName(all);
    MenuItems items;
    items.reserve(all.size() + 1);
    for (const auto& state : all) {
        items.push_back(stateItem(state, images_.appIconAndWindowStateImage(state)));
    }
    return items;
}

MenuItems StateMenuItems::groupedItems(const WindowStates& states) {
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
    MenuItems items;
    for (const auto& array : applications) {
        sortByName(*array); // the store's own array: the order is kept
        items.push_back(itemWithMenuForKeyEvents(*array, false));
    }
    return items;
}

std::shared_ptr<MenuItem> StateMenuItems::itemWithMenuForKeyEvents(const WindowStateArray& states,
                                                                   bool includeAppBundle) {
    auto& first = *states.front();
    auto item = itemWithTitle(first.appName().value_or(""));
    item->image = images_.appIconImage(first);
    item->submenu = std::make_shared<Menu>();
    MenuItems items;
    items.reserve(states.size() + 1);
    if (includeAppBundle) {
        items.push_back(itemWithTitle(first.appBundleId().value_or("")));
    }
    for (const auto& state : states) {
        items.push_back(stateItem(state, images_.windowStateImage(state)));
    }
    item->submenu->insertItems(items, 0);
    return item;
}

std::shared_ptr<MenuItem> StateMenuItems::stateItem(const std::shared_ptr<WindowState>& state,
                                                    ImagePtr image) {
    auto item = itemWithTitle(state->windowStateName().value_or(""));
    item->image = std::move(image);
    item->representedObject = state;
    item->action = [this, weak = std::weak_ptr(item)](const MenuChoice& choice) {
        if (const auto clicked = weak.lock()) {
            clicked_(*clicked, choice);
        }
    };
    return item;
}

} // namespace panewright
