#pragma once

#include "desktop/linux/desktop_entries.h"
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

    /// The application is known by its desktop entry; without one, by its window class. A window
    /// that is gone belongs to an application without names.
    RunningApplication applicationOf(xcb_window_t window);

private:
    void identify(RunningApplication& application, const std::string& wmClass,
                  const std::string& gtkId, const std::string& kdeFile);
    ProcessId pidOf(xcb_window_t window);
    std::optional<ProcessId> pidFromServer(xcb_window_t window);
    std::optional<ProcessId> pidFromProperty(xcb_window_t window);
    ProcessId privatePid(xcb_window_t window);

    XConnection& connection_;
    std::string ownBundleIdentifier_;
    DesktopEntries entries_ = DesktopEntries::ofSession();
    bool hasXRes_ = false;
    /// By the client's range of resources.
    std::map<std::uint32_t, ProcessId> privatePids_;
};

} // namespace panewright
