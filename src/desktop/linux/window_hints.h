#pragma once

#include "desktop/linux/x_connection.h"

#include <cstdint>
#include <optional>

namespace panewright {

/// What a window asks of its manager (ICCCM WM_NORMAL_HINTS).
struct SizeHints {
    /// Minimum and maximum of the client's size, in pixels, both given and equal.
    bool fixedWidth = false;
    bool fixedHeight = false;
    /// An X gravity; north-west if the window names none.
    std::uint32_t gravity = XCB_GRAVITY_NORTH_WEST;
};

/// What the manager says of a window (EWMH _NET_WM_STATE, _NET_WM_ALLOWED_ACTIONS).
struct WindowStates {
    bool maximizedHorizontally = false;
    bool maximizedVertically = false;
    bool shaded = false;
    bool fullScreen = false;

    /// A state in which the manager ignores or bends what it is asked.
    bool blocksPlacing() const { return maximizedHorizontally || maximizedVertically || shaded; }
};

struct AllowedActions {
    bool move = true;
    bool resize = true;
};

/// A window that is gone has the defaults.
SizeHints readSizeHints(XConnection& connection, xcb_window_t window);
WindowStates readWindowStates(XConnection& connection, xcb_window_t window);
/// Everything is allowed where the manager does not say.
AllowedActions readAllowedActions(XConnection& connection, xcb_window_t window);

} // namespace panewright
