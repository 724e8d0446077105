#include "menubar/hot_key_collisions.h"

#include "shortcuts/carbon_event_manager.h"

#include <map>

namespace panewright {

std::uint64_t combinationNumber(const WindowState& state) {
    const auto& event = state.keyEvent();
    return event ? CarbonEventManager::keyForKeyCode(event->keyCode(), event->modifierFlags()) : 0;
}

WindowStateArray statesWithoutCollisions(const std::vector<WindowStateArray>& lists) {
    std::map<std::uint64_t, std::shared_ptr<WindowState>> holders;
    for (const auto& list : lists) {
        for (const auto& state : list) {
            holders[combinationNumber(*state)] = state;
        }
    }
    WindowStateArray states;
    states.reserve(holders.size());
    for (const auto& [number, state] : holders) {
        states.push_back(state);
    }
    return states;
}

} // namespace panewright
