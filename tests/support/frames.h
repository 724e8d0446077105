#pragma once

#include "support/x_client.h"

#include <iosfwd>

namespace panewright::test {

/// The outer frame of a window, title bar and borders included, in root coordinates.
struct Frame {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Frame&, const Frame&) = default;
};

std::ostream& operator<<(std::ostream& stream, const Frame& frame);

/// All zero for a window that is gone.
Frame outerFrame(const XClient& x, xcb_window_t window);

/// The frame once it is the expected one, or what it is when patience ends.
Frame frameOnceItIs(const Frame& expected, const XClient& x, xcb_window_t window);

/// Moves the window through the window manager and waits until it is there.
void placeWindow(const XClient& x, xcb_window_t window, const Frame& frame);

} // namespace panewright::test
