#pragma once

#include "desktop/x11/server_time.h"
#include "desktop/x11/x_connection.h"

namespace panewright {

/// Asks the window manager to activate windows.
class WindowActivator {
public:
    explicit WindowActivator(XConnection& connection)
        : connection_(connection), serverTime_(connection) {}

    /// With the time that it is now, as a pager does: managers refuse what is older than the user's
    /// last action (EWMH, _NET_ACTIVE_WINDOW). Waits for the server, not for the manager.
    void activate(xcb_window_t window);

private:
    XConnection& connection_;
    ServerTime serverTime_;
};

} // namespace panewright
