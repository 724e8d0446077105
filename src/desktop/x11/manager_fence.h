#pragma once

#include "desktop/x11/window_manager.h"
#include "desktop/x11/x_connection.h"

#include <cstdint>

namespace panewright {

/// Tells when the window manager has handled what was sent to it before: it is asked for the frame
/// extents of a window of ours (EWMH _NET_REQUEST_FRAME_EXTENTS) and answers in order.
class ManagerFence {
public:
    using Id = std::uint64_t;

    ManagerFence(XConnection& connection, WindowManager& manager);

    /// Whether the manager answers; kwin does so out of order, and others may not at all.
    bool isReliable();

    /// Asks now; nothing is flushed.
    Id send();
    bool isReached(Id fence) const { return fence <= answered_; }

    /// Takes everything sent so far for reached: the manager died or does not answer.
    void giveUp();

private:
    void useNewWindow();
    void noteArrival(const xcb_generic_event_t& event);

    XConnection& connection_;
    WindowManager& manager_;
    xcb_window_t window_ = kNoWindow;
    Registration selection_;
    Id sent_ = 0;
    Id answered_ = 0;
    Registration arrivals_;
};

} // namespace panewright
