#pragma once

#include "base/geometry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

class Model;
class ShortcutText;

/// A window state as other programs see it. Rectangles are in global points (origin top-left of the
/// main display, y downwards).
struct WindowStateForScripts {
    struct Shortcut {
        std::string text; // as in the menu
        std::uint64_t keyCode = 0;
        std::uint64_t modifiers = 0; // in the application's form
    };

    std::optional<std::string> name;
    /// Where it applies: "default" or "global" everywhere, "application" in its application.
    std::string scope;
    // The application that it was saved from; nil for a built-in state.
    std::optional<std::string> applicationId;
    std::optional<std::string> applicationName;
    std::optional<Shortcut> shortcut;
    // The window's outer frame and its display's bounds when it was saved; nil for a built-in
    // state.
    std::optional<Rect> frame;
    std::optional<Rect> display;
    /// Share of the display that a built-in state covers; nil for a saved one.
    std::optional<Size> scale;
    bool isDefault = false;
    bool isGlobal = false;
    bool centerWindow = false;
    bool prefersDisplay = false;
};

/// All states in the store's order, in which one is also looked for by its name. Nil when the store
/// could not be read.
std::optional<std::vector<WindowStateForScripts>> windowStatesForScripts(const Model& model,
                                                                         const ShortcutText& text);

} // namespace panewright
