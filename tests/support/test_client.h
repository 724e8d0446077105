#pragma once

#include "support/frames.h"
#include "support/x_client.h"

#include <optional>
#include <string>

namespace panewright::test {

struct ClientOptions {
    Frame client{.x = 100, .y = 100, .width = 400, .height = 300};
    std::string windowClass = "TestClient";
    /// The process that it says it is of, which counts where the server does not know.
    std::uint32_t pid = 1;
    /// Whether the window manager may focus it when it is shown (EWMH, _NET_WM_USER_TIME).
    bool wantsFocus = true;
    xcb_gravity_t gravity = XCB_GRAVITY_NORTH_WEST;
    std::optional<Size> minimumSize;
    std::optional<Size> maximumSize;
    std::optional<Size> increments;
    /// The invisible border (left, right, top, bottom) of a window that draws its own frame.
    std::optional<std::array<std::uint32_t, 4>> gtkFrameExtents;
};

/// A plain window of another program, on a connection of its own; mapped and framed by the window
/// manager when the constructor returns. Goes with its object.
class TestClient {
public:
    explicit TestClient(const std::string& display, const ClientOptions& options = {});

    xcb_window_t window() const { return window_; }

    /// Returns when the window manager has made it the active window.
    void activate() const;
    bool isActive() const { return x_.activeWindow() == window_; }

    /// Takes the input focus, without asking a window manager.
    void takeFocus() const;

    /// How many key presses have come to the window.
    int keyPresses();

    /// Sends the request and does not wait.
    void destroy() const {
        xcb_destroy_window(x_.connection(), window_);
        xcb_flush(x_.connection());
    }

    /// What it tells the window manager of itself. Returns when the server has it.
    void setHints(const ClientOptions& options) const;

private:
    XClient x_;
    xcb_window_t window_;
    int keyPresses_ = 0;
};

} // namespace panewright::test
