#pragma once

#include "desktop/x11/x_connection.h"

namespace panewright {

/// What time it is on the X server's clock. Window managers compare it with that of the user's last
/// action and refuse the focus to what is older, or has none ("focus stealing prevention").
class ServerTime {
public:
    explicit ServerTime(XConnection& connection);

    /// In milliseconds. Waits for the server, for a second at most; XCB_CURRENT_TIME when it does
    /// not answer.
    xcb_timestamp_t now();

private:
    XConnection& connection_;
    xcb_window_t window_;
    xcb_timestamp_t latest_ = XCB_CURRENT_TIME;
    Registration selection_;
    Registration arrivals_;
};

} // namespace panewright
