#pragma once

#include "desktop/linux/x_connection.h"
#include "platform/workspace.h"

#include <map>
#include <string>

namespace panewright {

/// Tells which application a client window belongs to.
class ClientIdentity {
public:
    /// Windows of this process belong to the application `ownBundleIdentifier`.
    ClientIdentity(XConnection& connection, std::string ownBundleIdentifier);

    /// A window that is gone belongs to an application without names.
    RunningApplication applicationOf(xcb_window_t window);

private:
    ProcessId pidOf(xcb_window_t window);
    std::optional<ProcessId> pidFromServer(xcb_window_t window);
    std::optional<ProcessId> pidFromProperty(xcb_window_t window);
    ProcessId privatePid(xcb_window_t window);

    XConnection& connection_;
    std::string ownBundleIdentifier_;
    bool hasXRes_ = false;
    /// By the client's range of resources.
    std::map<std::uint32_t, ProcessId> privatePids_;
};

} // namespace panewright
