#pragma once

#include "base/observer_list.h"
#include "desktop/x11/client_identity.h"
#include "desktop/x11/turn_end.h"
#include "desktop/x11/window_facts.h"
#include "desktop/x11/window_manager.h"
#include "desktop/x11/x_connection.h"
#include "platform/workspace.h"

#include <chrono>
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
    ActiveWindows(XConnection& connection, WindowManager& manager, WindowFactsOfTurn& facts,
                  MainLoop& mainLoop, std::string ownBundleIdentifier);

    /// The application of the last active window, as it is now; nil before there was one. The
    /// server is asked once in a turn of the main loop (see TurnEnd). A change that this finds is
    /// told of later in the main loop.
    const std::optional<RunningApplication>& frontmost();

    /// Asks the server which window is active and tells of a change at once. Otherwise that is done
    /// when the event of a change comes, which may be after a key press that it was made for. What
    /// is known afterwards of the active window has been asked in the same round trip.
    void update();

    /// The application's last active window that is still active or shown; nil if there is none, or
    /// the desktop or a dock of it is active.
    std::optional<xcb_window_t> focusedWindowOf(ProcessId pid);

    /// The windows that the manager shows, the newest last (EWMH, _NET_CLIENT_LIST); of all
    /// programs, or of one process.
    std::vector<xcb_window_t> allWindows();
    std::vector<xcb_window_t> windowsOf(ProcessId pid);

    /// The window that is active now, as the server says; kNoWindow if there is none.
    xcb_window_t readActiveWindow();

    /// Whether it is mapped, on a workspace that is seen, or shaded.
    bool isShown(xcb_window_t window);

    /// The last active window of another program, docks left out; kNoWindow if there is none.
    xcb_window_t lastOfOthers() const;

    /// The process that a window belongs to.
    ProcessId pidOf(xcb_window_t window) { return identity_.pidOf(window); }

    ClientIdentity& identity() { return identity_; }

    /// Called after another application got the active window, and when the program that has it is
    /// known under another identifier.
    Registration onActivation(std::function<void()> callback) {
        return activated_.add(std::move(callback));
    }

    /// Called after another window of the frontmost application became the active one.
    Registration onWindowChange(std::function<void(ProcessId)> callback) {
        return windowChanged_.add(std::move(callback));
    }

    /// Called each time after the server has been asked, with the active window and its process;
    /// kNoWindow and 0 if there is none.
    Registration onAsked(std::function<void(xcb_window_t, ProcessId)> callback) {
        return asked_.add(std::move(callback));
    }

private:
    using Clock = std::chrono::steady_clock;
    enum class Kind { kOrdinary, kDesktop, kDock };
    struct Window {
        xcb_window_t window = kNoWindow;
        ProcessId pid = 0;
        Kind kind = Kind::kOrdinary;
        Registration selection;
    };

    void handle(const xcb_generic_event_t& event);
    /// By the desktop entries that have been read meanwhile.
    void identifyAgain();
    void noteArrival(const xcb_generic_event_t& event);
    /// Asks the server and takes note of a change, which tell() tells of.
    void refresh();
    void tell();
    void takeNote(xcb_window_t active);
    void becameActive(xcb_window_t window, RunningApplication application);
    xcb_window_t readFocusedTopLevel();
    /// By its _NET_WM_WINDOW_TYPE.
    Kind kindFrom(const std::vector<std::uint32_t>& types) const;

    XConnection& connection_;
    WindowManager& manager_;
    WindowFactsOfTurn& facts_;
    MainLoop& mainLoop_;
    ClientIdentity identity_;
    /// The last active one first.
    std::vector<Window> windows_;
    /// The last active one, unless it is gone.
    xcb_window_t active_ = kNoWindow;
    /// The one that the server named as active when it was asked last; while a manager takes over,
    /// the last one named. It counts as shown: it may be unmapped for a moment then.
    xcb_window_t named_ = kNoWindow;
    Clock::time_point takeoverEnds_;
    std::optional<RunningApplication> frontmost_;
    /// Whether the server has been asked in this turn.
    bool isRefreshed_ = false;
    TurnEnd turnEnd_;
    /// What has been found and not told of.
    bool hasUntoldActivation_ = false;
    bool hasUntoldWindowChange_ = false;
    ObserverList<xcb_window_t, ProcessId> asked_;
    ObserverList<> activated_;
    ObserverList<ProcessId> windowChanged_;
    Lifetime lifetime_;
    Registration rootSelection_;
    Registration arrivals_;
    Registration events_;
    Registration managerChanges_;
    Registration entryChanges_;
};

} // namespace panewright
