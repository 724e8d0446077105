#pragma once

#include "base/observer_list.h"
#include "desktop/linux/client_identity.h"
#include "desktop/linux/window_manager.h"
#include "desktop/linux/x_connection.h"
#include "platform/workspace.h"

#include <functional>
#include <optional>
#include <vector>

namespace panewright {

/// Which windows were active, the last one first, and whose they are.
///
/// Without a window manager the top-level window that holds the input focus counts as active.
///
/// No window being active leaves everything as it was. The desktop and docks are windows of their
/// program, but never its focused window.
class ActiveWindows {
public:
    ActiveWindows(XConnection& connection, WindowManager& manager, std::string ownBundleIdentifier);

    /// The application of the last active window; nil before there was one.
    const std::optional<RunningApplication>& frontmost() const { return frontmost_; }

    /// Asks the server which window is active and tells of a change at once. Otherwise that is done
    /// when the event of a change comes, which may be after a key press that it was made for.
    void update();

    /// The application's last active window that is still shown; nil if there is none, or the
    /// desktop or a dock of it is active.
    std::optional<xcb_window_t> focusedWindowOf(ProcessId pid);

    /// The process that a window belongs to.
    ProcessId pidOf(xcb_window_t window) {
        return identity_.applicationOf(window).processIdentifier;
    }

    /// Called after another application, or the same program under another identifier, got the
    /// active window.
    Registration onActivation(std::function<void()> callback) {
        return activated_.add(std::move(callback));
    }

    /// Called after another window of the frontmost application became the active one.
    Registration onWindowChange(std::function<void(ProcessId)> callback) {
        return windowChanged_.add(std::move(callback));
    }

private:
    struct Window {
        xcb_window_t window = kNoWindow;
        ProcessId pid = 0;
        bool isPlaceable = true;
        Registration selection;
    };

    void handle(const xcb_generic_event_t& event);
    xcb_window_t readActiveWindow();
    xcb_window_t readFocusedTopLevel();
    bool isDesktopOrDock(xcb_window_t window);
    bool isShown(xcb_window_t window);
    void moveToFront(xcb_window_t window, ProcessId pid);

    XConnection& connection_;
    WindowManager& manager_;
    ClientIdentity identity_;
    /// The last active one first.
    std::vector<Window> windows_;
    /// The last active one, unless it is gone.
    xcb_window_t active_ = kNoWindow;
    std::optional<RunningApplication> frontmost_;
    ObserverList<> activated_;
    ObserverList<ProcessId> windowChanged_;
    Registration rootSelection_;
    Registration events_;
    Registration managerChanges_;
};

} // namespace panewright
