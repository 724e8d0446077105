#pragma once

#include "desktop/x11/outermost_ancestors.h"
#include "desktop/x11/turn_end.h"
#include "desktop/x11/window_geometry.h"
#include "desktop/x11/window_hints.h"
#include "desktop/x11/window_manager.h"

#include <map>
#include <memory>
#include <optional>

namespace panewright {

/// What a window's properties say that matters for placing it.
struct WindowProperties {
    /// What the manager says that it put around the window.
    Extents decoration;
    Extents shadow;
    WindowTraits traits;
};

/// All that placing a window needs to know of it.
struct WindowFacts {
    WindowGeometry geometry;
    WindowTraits traits;
};

/// What the server says of windows, each asked in one round trip. An answer serves until the turn
/// of the main loop ends (see TurnEnd), or something is heard that may have changed it. The
/// properties of one window, the active one, are remembered and followed: each reply that is not
/// needed makes a key press faster.
class WindowFactsOfTurn {
public:
    WindowFactsOfTurn(XConnection& connection, WindowManager& manager, MainLoop& mainLoop);

    /// Remembers the properties of this window from now on, and of no other.
    void follow(xcb_window_t window);

    /// Asks, unless that has been done, and does not wait: other questions can join the round trip.
    void ask(xcb_window_t window);
    /// Nil for a window that is gone.
    std::optional<WindowFacts> of(xcb_window_t window);
    /// The same, asked of the server now.
    std::optional<WindowFacts> anew(xcb_window_t window);
    /// What has been answered; nil if nothing was.
    std::optional<WindowFacts> known(xcb_window_t window) const;

    void forget(xcb_window_t window) { asked_.erase(window); }
    void forgetAll() { asked_.clear(); }

    OutermostAncestors& ancestors() { return ancestors_; }

private:
    struct PropertiesRequest;
    struct Asked;

    std::optional<WindowFacts> take(xcb_window_t window, Asked& asked);
    xcb_window_t changedBy(const xcb_generic_event_t& event) const;
    void noteArrival(const xcb_generic_event_t& event);

    XConnection& connection_;
    WindowManager& manager_;
    OutermostAncestors ancestors_;
    std::map<xcb_window_t, std::shared_ptr<Asked>> asked_;
    xcb_window_t followed_ = kNoWindow;
    /// Nil when they are not known, or have changed.
    std::optional<WindowProperties> properties_;
    Registration selection_;
    TurnEnd turnEnd_;
    Registration arrivals_;
    Registration managerChanges_;
};

} // namespace panewright
