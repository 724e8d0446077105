#pragma once

#include "desktop/x11/x_atoms.h"

#include <xcb/xcb.h>

#include <memory>
#include <utility>

namespace panewright {

/// The X server that $DISPLAY names, with a connection to it. It is asked at once what the desktop
/// needs first, so that the answers are there when that is made.
class ReachedServer {
public:
    /// Null when there is no such server.
    static std::unique_ptr<ReachedServer> reach();
    /// Ends the connection, unless it was taken.
    ~ReachedServer();
    ReachedServer(const ReachedServer&) = delete;
    ReachedServer& operator=(const ReachedServer&) = delete;

    /// The root window of the screen that $DISPLAY names.
    xcb_window_t root() const { return root_; }
    /// Waits for the answer. Once only.
    XAtoms atoms() { return atoms_.take(); }
    /// Leaves the connection to the caller.
    xcb_connection_t* takeConnection() { return std::exchange(connection_, nullptr); }

private:
    ReachedServer(xcb_connection_t* connection, int screen);

    xcb_connection_t* connection_;
    xcb_window_t root_;
    XAtomsRequest atoms_;
};

} // namespace panewright
