#include "menubar/applicable_window_states.h"

#include "model/model.h"
#include "shortcuts/carbon_event_manager.h"

namespace panewright {
namespace {

void append(WindowStateArray& states, const std::shared_ptr<WindowStateArray>& more) {
    if (more) {
        states.insert(states.end(), more->begin(), more->end());
    }
}

std::uint64_t combinationNumber(const WindowState& state) {
    const auto& event = state.keyEvent();
    return event ? CarbonEventManager::keyForKeyCode(event->keyCode(), event->modifierFlags()) : 0;
}

} // namespace

WindowStateArray applicableWindowStates(const Model& model,
                                        const std::optional<RunningApplication>& frontmost) {
    WindowStateArray states;
    append(states, model.defaultWindowStates());
    append(states, model.globalWindowStates());
    if (frontmost && frontmost->bundleIdentifier) {
        append(states, model.windowStatesForAppBundleId(*frontmost->bundleIdentifier));
    }
    return states;
}

std::map<std::uint64_t, std::size_t> placesWithoutCollisions(const WindowStateArray& states) {
    std::map<std::uint64_t, std::size_t> places;
    for (std::size_t place = 0; place < states.size(); ++place) {
        places[combinationNumber(*states[place])] = place;
    }
    return places;
}

} // namespace panewright
