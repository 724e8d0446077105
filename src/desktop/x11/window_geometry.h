#pragma once

#include "base/geometry.h"
#include "desktop/x11/window_manager.h"
#include "desktop/x11/x_connection.h"

#include <cstdint>
#include <optional>

namespace panewright {

/// Widths in pixels around a window.
struct Extents {
    std::int32_t left = 0;
    std::int32_t right = 0;
    std::int32_t top = 0;
    std::int32_t bottom = 0;

    friend bool operator==(const Extents&, const Extents&) = default;
};

Rect grownBy(const Rect& rect, const Extents& by);
Rect shrunkBy(const Rect& rect, const Extents& by);

/// Where a window is, in root coordinates.
struct WindowGeometry {
    /// The client window with its X border, which is `border` wide on each side.
    Rect client;
    std::int32_t border = 0;
    /// What the manager put around it.
    Extents decoration;
    /// What a client-side decoration draws of its shadow, inside the client window.
    Extents shadow;

    /// The outer frame that a person sees.
    Rect frame() const { return shrunkBy(grownBy(client, decoration), shadow); }
    /// The client that has this outer frame, as long as decoration and shadow stay.
    Rect clientOf(const Rect& frame) const { return shrunkBy(grownBy(frame, shadow), decoration); }
};

/// Nil for a window that is gone.
std::optional<WindowGeometry> readGeometry(XConnection& connection, WindowManager& manager,
                                           xcb_window_t window);

/// The child of the root that holds the window (the window itself if it is one); nil for a window
/// that is gone.
std::optional<xcb_window_t> outermostAncestor(XConnection& connection, xcb_window_t window);

} // namespace panewright
