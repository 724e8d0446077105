#include "desktop/x11/window_frame_watch.h"

#include <utility>
#include <vector>

namespace panewright {

WindowFrameWatch::WindowFrameWatch(XConnection& connection, WindowFactsOfTurn& facts,
                                   FrameWriter& writer, MainLoop& mainLoop)
    : connection_(connection), facts_(facts), writer_(writer), mainLoop_(mainLoop),
      events_(connection.onEvent([this](const auto& event) { handle(event); })),
      settled_(writer.onSettled([this](xcb_window_t window) { check(window); })) {}

Registration WindowFrameWatch::onMoved(xcb_window_t window, std::function<void()> callback) {
    return keepWhile(window, watch(window)->moved.add(std::move(callback)));
}

Registration WindowFrameWatch::onResized(xcb_window_t window, std::function<void()> callback) {
    return keepWhile(window, watch(window)->resized.add(std::move(callback)));
}

void WindowFrameWatch::checkAll() {
    for (const auto& [window, watched] : watched_) {
        watched->isDirty = true;
    }
    checkChanged();
}

void WindowFrameWatch::checkChanged() {
    std::vector<xcb_window_t> changed;
    for (const auto& [window, watched] : watched_) {
        if (watched->isDirty) {
            changed.push_back(window);
        }
    }
    for (const auto window : changed) {
        check(window);
    }
}

std::shared_ptr<WindowFrameWatch::Watched> WindowFrameWatch::watch(xcb_window_t window) {
    auto& watched = watched_[window];
    if (!watched) {
        watched = std::make_shared<Watched>();
        watched->selection = connection_.selectEvents(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                                                  XCB_EVENT_MASK_PROPERTY_CHANGE);
        watched->reported = writer_.settledFrame(window).value_or(Rect{});
        followAncestorSoon(window);
    }
    return watched;
}

Registration WindowFrameWatch::keepWhile(xcb_window_t window, Registration registration) {
    auto kept = std::make_shared<Registration>(std::move(registration));
    return Registration([this, alive = lifetime_.watch(), window, kept] {
        kept->release();
        if (!alive.expired()) {
            // Whoever observes the same window again at once finds everything still set up.
            mainLoop_.post(lifetime_.guard([this, window] { forgetIfUnobserved(window); }));
        }
    });
}

void WindowFrameWatch::forgetIfUnobserved(xcb_window_t window) {
    const auto watched = watched_.find(window);
    if (watched != watched_.end() && watched->second->moved.empty() &&
        watched->second->resized.empty()) {
        watched_.erase(watched);
    }
}

/// Not at once: whoever observes a window may be about to place it, and finding it asks the server.
void WindowFrameWatch::followAncestorSoon(xcb_window_t window) {
    mainLoop_.post(lifetime_.guard([this, window] {
        mainLoop_.post(lifetime_.guard([this, window] {
            if (const auto watched = watched_.find(window); watched != watched_.end()) {
                followAncestor(window, *watched->second);
                checkSoon(window, *watched->second); // it may have moved before
            }
        }));
    }));
}

void WindowFrameWatch::followAncestor(xcb_window_t window, Watched& watched) {
    watched.ancestorSelection.release();
    watched.ancestor = facts_.ancestors().of(window).value_or(window);
    // While a person drags a window some managers move its frame and tell the client at the end.
    if (watched.ancestor != window) {
        watched.ancestorSelection =
            connection_.selectEvents(watched.ancestor, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
}

void WindowFrameWatch::handle(const xcb_generic_event_t& event) {
    xcb_window_t changed = kNoWindow;
    switch (event.response_type) {
    case XCB_CONFIGURE_NOTIFY:
        changed = reinterpret_cast<const xcb_configure_notify_event_t&>(event).window;
        break;
    case XCB_REPARENT_NOTIFY:
        changed = reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window;
        if (const auto watched = watched_.find(changed); watched != watched_.end()) {
            followAncestor(changed, *watched->second);
        }
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const auto& atoms = connection_.atoms();
        if (change.atom == atoms._NET_FRAME_EXTENTS || change.atom == atoms._GTK_FRAME_EXTENTS) {
            changed = change.window;
        }
        break;
    }
    default:
        break;
    }
    if (changed == kNoWindow) {
        return;
    }
    for (const auto& [window, watched] : watched_) {
        if (window == changed || watched->ancestor == changed) {
            checkSoon(window, *watched);
        }
    }
}

void WindowFrameWatch::checkSoon(xcb_window_t window, Watched& watched) {
    facts_.forget(window);
    if (!std::exchange(watched.isDirty, true)) {
        mainLoop_.post(lifetime_.guard([this, window] { check(window); }));
    }
}

void WindowFrameWatch::check(xcb_window_t window) {
    const auto found = watched_.find(window);
    if (found == watched_.end() || writer_.isBusy(window)) {
        return; // what is being written is looked at when it has settled
    }
    const auto watched = found->second;
    watched->isDirty = false;
    const auto frame = writer_.settledFrame(window);
    if (!frame) {
        return;
    }
    const auto before = std::exchange(watched->reported, *frame);
    if (before.origin() != frame->origin()) {
        watched->moved.notify();
    }
    if (before.size() != frame->size()) {
        watched->resized.notify();
    }
}

} // namespace panewright
