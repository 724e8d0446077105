#include "model/default_window_states.h"

#include "model/window_state.h"
#include "shortcuts/modifier_flags.h"
#include "shortcuts/virtual_key_codes.h"

namespace panewright {
namespace {

struct BuiltIn {
    const char* name;
    double scale;
    std::uint16_t keyCode;
};

constexpr BuiltIn kBuiltIns[] = {
    {"Full Screen", 1.0, kDigit1KeyCode},
    {"Centered Large", 0.9, kDigit2KeyCode},
    {"Centered Medium", 0.8, kDigit3KeyCode},
    {"Centered Small", 0.65, kDigit4KeyCode},
};

} // namespace

WindowStateArray makeDefaultWindowStates() {
    WindowStateArray states;
    for (const auto& [name, scale, keyCode] : kBuiltIns) {
        auto state = WindowState::windowStateIsDefault(true, false);
        state->setCenterWindow(true);
        state->setWindowStateName(name);
        state->setWindowScale({scale, scale});
        state->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(keyCode, kOptionFlag));
        states.push_back(std::move(state));
    }
    return states;
}

} // namespace panewright
