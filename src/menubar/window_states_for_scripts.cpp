#include "menubar/window_states_for_scripts.h"

#include "model/model.h"
#include "shortcuts/shortcut_text.h"

namespace panewright {
namespace {

/// Nil for the zero value, which is that of a field that a state does not use.
template <class T>
std::optional<T> ifUsed(const T& value) {
    return value == T{} ? std::nullopt : std::optional(value);
}

std::string scopeOf(std::string_view key) {
    if (key == kDefaultsKey) {
        return "default";
    }
    return key == kGlobalsKey ? "global" : "application";
}

WindowStateForScripts listed(std::string_view key, const WindowState& state,
                             const ShortcutText& text) {
    WindowStateForScripts result{.name = state.windowStateName(),
                                 .scope = scopeOf(key),
                                 .applicationId = state.appBundleId(),
                                 .applicationName = state.appName(),
                                 .frame = ifUsed(state.originalWindowRect()),
                                 .display = ifUsed(state.originalQuartzDisplayBounds()),
                                 .scale = ifUsed(state.windowScale()),
                                 .isDefault = state.isDefault(),
                                 .isGlobal = state.isGlobal(),
                                 .centerWindow = state.centerWindow(),
                                 .prefersDisplay = state.prefersDisplay()};
    if (const auto& event = state.keyEvent()) {
        result.shortcut = {.text = event->presentableKeyboardShortcut(text),
                           .keyCode = event->keyCode(),
                           .modifiers = event->modifierFlags()};
    }
    return result;
}

} // namespace

std::optional<std::vector<WindowStateForScripts>> windowStatesForScripts(const Model& model,
                                                                         const ShortcutText& text) {
    if (!model.windowStates()) {
        return std::nullopt;
    }
    std::vector<WindowStateForScripts> result;
    for (const auto& [key, states] : *model.windowStates()) {
        for (const auto& state : *states) {
            result.push_back(listed(key, *state, text));
        }
    }
    return result;
}

} // namespace panewright
