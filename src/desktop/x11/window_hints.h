#pragma once

#include "desktop/x11/x_connection.h"
#include "desktop/x11/x_properties.h"

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
struct EwmhStates {
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

/// All three, in one round trip. A window that is gone has the defaults; where the manager does not
/// say what is allowed, everything is.
struct WindowTraits {
    SizeHints hints;
    EwmhStates states;
    AllowedActions allowed;
};

/// Traits that have been asked for, so that other questions can join the round trip.
class TraitsRequest {
public:
    TraitsRequest(XConnection& connection, xcb_window_t window);
    /// Once.
    WindowTraits take();

private:
    const XAtoms& atoms_;
    XPropertyRequest hints_;
    XPropertyRequest states_;
    XPropertyRequest actions_;
};

} // namespace panewright
