#include "menubar/hot_key_collisions.h"

#include "shortcuts/carbon_event_manager.h"

namespace panewright {

std::uint64_t combinationNumber(const WindowState& state) {
    const auto& event = state.keyEvent();
    return event ? CarbonEventManager::keyForKeyCode(event->keyCode(), event->modifierFlags()) : 0;
}

std::map<std::uint64_t, std::size_t> placesWithoutCollisions(const WindowStateArray& states) {
    std::map<std::uint64_t, std::size_t> places;
    for (std::size_t place = 0; place < states.size(); ++place) {
        places[combinationNumber(*states[place])] = place;
    }
    return places;
}

} // namespace panewright
