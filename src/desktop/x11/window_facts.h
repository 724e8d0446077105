#pragma once

#include "desktop/x11/outermost_ancestors.h"
#include "desktop/x11/turn_end.h"
#include "desktop/x11/window_geometry.h"
#include "desktop/x11/window_hints.h"

#include <map>
#include <memory>
#include <optional>

namespace panewright {

/// All that placing a window needs to know of it.
struct WindowFacts {
    WindowGeometry geometry;
    WindowTraits traits;
};

/// Facts that have been asked for.
class WindowFactsRequest {
public:
    WindowFactsRequest(XConnection& connection, WindowManager& manager,
                       OutermostAncestors& ancestors, xcb_window_t window);
    /// Once. Nil for a window that is gone.
    std::optional<WindowFacts> take();

    /// Whether the answer does not tell yet of what the event does.
    bool isBefore(const xcb_generic_event_t& event) const;

private:
    GeometryRequest geometry_; // the first to be sent
    TraitsRequest traits_;
};

/// What the server says of windows, each asked in one round trip. An answer serves until the turn
/// of the main loop ends (see TurnEnd), or something is heard that may have changed it.
class WindowFactsOfTurn {
public:
    WindowFactsOfTurn(XConnection& connection, WindowManager& manager, MainLoop& mainLoop);

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
    struct Asked {
        WindowFactsRequest request;
        bool isAnswered = false;
        std::optional<WindowFacts> facts;
        bool isOutdated = false;
    };

    void noteArrival(const xcb_generic_event_t& event);

    XConnection& connection_;
    WindowManager& manager_;
    OutermostAncestors ancestors_;
    std::map<xcb_window_t, std::unique_ptr<Asked>> asked_;
    TurnEnd turnEnd_;
    Registration arrivals_;
};

} // namespace panewright
