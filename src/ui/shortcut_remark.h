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

/// Whose shortcut it is, or is about to be.
struct ShortcutOwner {
    /// Null for the move to the next display.
    std::shared_ptr<const WindowState> state;
    /// The application that the shortcut works in; nil for all.
    std::optional<std::string> application;
};

struct ShortcutRemarkServices {
    const HotKeys& hotKeys;
    const Model& model;
    const TextServices& text;
};

/// What is to be said beside a shortcut where it is shown, in lines: that another program holds it,
/// and which others of ours have it where it works: states, and the move to the next display, which
/// works everywhere, as states do that are built in or global. Empty when there is nothing to say.
std::string shortcutRemark(const ShortcutRemarkServices& services, std::uint64_t keyCode,
                           std::uint64_t modifierFlags, const ShortcutOwner& owner);

/// What the move to the next display is called, here and in the menu.
std::string moveToNextDisplayTitle(const TextServices& text);

/// What is to be said while a key was pressed that cannot be recorded.
std::string refusedKeyRemark(const TextServices& text);

} // namespace panewright
