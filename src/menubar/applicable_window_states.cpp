#include "menubar/applicable_window_states.h"

#include "model/model.h"

namespace panewright {
namespace {

WindowStateArray statesIn(const std::shared_ptr<WindowStateArray>& array) {
    return array ? *array : WindowStateArray{};
}

WindowStateArray statesOf(const std::optional<RunningApplication>& application,
                          const Model& model) {
    return application && application->bundleIdentifier
               ? statesIn(model.windowStatesForAppBundleId(*application->bundleIdentifier))
               : WindowStateArray{};
}

} // namespace

std::vector<WindowStateArray>
applicableWindowStates(const Model& model, const std::optional<RunningApplication>& frontmost) {
    return {statesIn(model.defaultWindowStates()), statesIn(model.globalWindowStates()),
            statesOf(frontmost, model)};
}

} // namespace panewright
