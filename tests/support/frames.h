#pragma once

#include "support/eventually.h"
#include "support/print_geometry.h"
#include "support/x_client.h"

#include <string>

namespace panewright::test {

/// The outer frame of a window, title bar and borders included, in root coordinates.
using Frame = Rect;

/// Whether a window manager is in charge, and whether it says how wide its frames are.
bool isManaged(const XClient& x);
bool tellsFrameExtents(const XClient& x);

/// All zero for a window that is gone.
Frame outerFrame(const XClient& x, xcb_window_t window);

/// The frame once it is the expected one, or what it is when the time is up.
Frame frameOnceItIs(const Frame& expected, const XClient& x, xcb_window_t window,
                    std::chrono::milliseconds timeout = kPatience);

/// Adds one or two states (EWMH, _NET_WM_STATE) to the window and waits until it has them, if the
/// manager knows them.
void addStates(const XClient& x, xcb_window_t window, const std::vector<std::string>& states);

/// Moves the window through the window manager and waits until it is there.
void placeWindow(const XClient& x, xcb_window_t window, const Frame& frame);

} // namespace panewright::test
