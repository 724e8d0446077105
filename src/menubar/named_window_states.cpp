#include "menubar/named_window_states.h"

#include "model/model.h"
#include "model/window_state.h"

namespace panewright {

std::shared_ptr<WindowState>
firstWindowStateNamed(const Model& model, std::string_view name,
                      std::optional<std::string_view> applicationName) {
    const auto all = model.allWindowStates();
    if (!all) {
        return nullptr;
    }
    for (const auto& [key, states] : *all) {
        for (const auto& state : *states) {
            if (state->windowStateName() == name &&
                (!applicationName || state->appName() == *applicationName)) {
                return state;
            }
        }
    }
    return nullptr;
}

} // namespace panewright
