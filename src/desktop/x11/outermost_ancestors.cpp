#include "desktop/x11/outermost_ancestors.h"

namespace panewright {

std::optional<xcb_window_t> outermostAncestor(XConnection& connection, xcb_window_t window) {
    for (;;) {
        const auto tree =
            connection.reply(xcb_query_tree_reply, xcb_query_tree(connection, window));
        if (!tree) {
            return std::nullopt;
        }
        if (tree->parent == tree->root || tree->parent == kNoWindow) {
            return window;
        }
        window = tree->parent;
    }
}

OutermostAncestors::OutermostAncestors(XConnection& connection)
    : connection_(connection),
      arrivals_(connection.onArrival([this](const auto& event) { noteArrival(event); })),
      events_(connection.onEvent([this](const auto& event) { handle(event); })) {}

std::optional<xcb_window_t> OutermostAncestors::of(xcb_window_t window) {
    auto& known = known_[window];
    if (!known.selection) {
        known.selection = connection_.selectEvents(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    if (!known.ancestor) {
        known.ancestor = outermostAncestor(connection_, window);
    }
    const auto ancestor = known.ancestor;
    if (!ancestor) {
        known_.erase(window);
    }
    return ancestor;
}

void OutermostAncestors::noteArrival(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_REPARENT_NOTIFY) {
        const auto moved = reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window;
        if (const auto known = known_.find(moved); known != known_.end()) {
            known->second.ancestor.reset();
        }
    }
}

void OutermostAncestors::handle(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_DESTROY_NOTIFY) {
        known_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    }
}

} // namespace panewright
