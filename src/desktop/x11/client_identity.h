#pragma once

#include "desktop/freedesktop/desktop_entries.h"
#include "desktop/x11/x_connection.h"
#include "platform/main_loop.h"
#include "platform/workspace.h"

#include <map>
#include <string>
#include <vector>

namespace panewright {

/// Tells which application a client window belongs to.
class ClientIdentity {
public:
    /// Windows of this process, and no others, belong to the application `ownBundleIdentifier`.
    ClientIdentity(XConnection& connection, MainLoop& mainLoop, std::string ownBundleIdentifier);

    /// The application is known by its desktop entry, once that has been read; without one, by its
    /// window class. A window that is gone belongs to an application without names.
    RunningApplication applicationOf(xcb_window_t window);
    /// The process of that application.
    ProcessId pidOf(xcb_window_t window);

    /// Which of the windows belong to the process, in their order.
    std::vector<xcb_window_t> windowsOf(ProcessId pid, const std::vector<xcb_window_t>& windows);

    DesktopEntries& entries() { return entries_; }

private:
    void identify(RunningApplication& application, const std::string& wmClass,
                  const std::string& gtkId, const std::string& kdeFile);
    ProcessId pidFromWindow(xcb_window_t window);
    std::uint32_t clientOf(xcb_window_t window) const;
    std::map<std::uint32_t, ProcessId> pidsFromServer(const std::vector<xcb_window_t>& windows);
    std::optional<ProcessId> pidFromProperty(xcb_window_t window);
    ProcessId privatePid(xcb_window_t window);

    XConnection& connection_;
    std::string ownBundleIdentifier_;
    DesktopEntries entries_;
    bool hasXRes_;
    /// By the client's range of resources.
    std::map<std::uint32_t, ProcessId> privatePids_;
};

} // namespace panewright
