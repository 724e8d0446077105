#pragma once

#include "platform/hot_keys.h"
#include "platform/text_services.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace panewright {

class Model;
class WindowState;

// Modifier flags are in the application's form.

/// Whether another program holds the shortcut.
bool isShortcutTaken(const HotKeys& hotKeys, std::uint64_t keyCode, std::uint64_t modifierFlags);

/// What is to be said beside a shortcut where it is shown: that another program holds it. Empty
/// when there is nothing to say.
std::string shortcutRemark(const HotKeys& hotKeys, const TextServices& text, std::uint64_t keyCode,
                           std::uint64_t modifierFlags);

/// A shortcut that a state has or is about to get.
struct ShortcutUse {
    /// As the registry counts it (CarbonEventManager::keyForKeyCode).
    std::uint64_t key = 0;
    /// The application that it works in; nil for all.
    std::optional<std::string> application;
    /// No other use of it.
    std::shared_ptr<const WindowState> state;
};

/// Which others of ours have the shortcut where it works: states, and the move to the next display,
/// which works everywhere, as states do that are built in or global. Empty when there is none.
std::string otherUsesRemark(const Model& model, const TextServices& text, const ShortcutUse& use);

/// What is to be said while a key was pressed that cannot be recorded.
std::string refusedKeyRemark(const TextServices& text);

} // namespace panewright
