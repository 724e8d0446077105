#include "menubar/applicable_window_states.h"

#include "model/model.h"

namespace panewright {
namespace {

void append(WindowStateArray& states, const std::shared_ptr<WindowStateArray>& more) {
    if (more) {
        states.insert(states.end(), more->begin(), more->end());
    }
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

} // namespace panewright
