#pragma once

#include "desktop/x11/x_connection.h"

#include <map>
#include <optional>

namespace panewright {

/// The child of the root that holds the window (the window itself if it is one); nil for a window
/// that is gone.
std::optional<xcb_window_t> outermostAncestor(XConnection& connection, xcb_window_t window);

/// The outermost ancestors of windows, which are the frames around them. They are remembered and
/// followed, so that only the first question of a window waits for the server.
class OutermostAncestors {
public:
    explicit OutermostAncestors(XConnection& connection);

    /// Nil for a window that is gone.
    std::optional<xcb_window_t> of(xcb_window_t window);

private:
    struct Known {
        /// Nil when the window has got another parent since.
        std::optional<xcb_window_t> ancestor;
        Registration selection;
    };

    void noteArrival(const xcb_generic_event_t& event);
    void handle(const xcb_generic_event_t& event);

    XConnection& connection_;
    std::map<xcb_window_t, Known> known_;
    Registration arrivals_;
    Registration events_;
};

} // namespace panewright
