#include "desktop/x11/window_facts.h"

namespace panewright {
namespace {

/// The window whose frame, state or place the event tells of; none for other events.
xcb_window_t changedBy(const xcb_generic_event_t& event) {
    switch (event.response_type) {
    case XCB_CONFIGURE_NOTIFY:
        return reinterpret_cast<const xcb_configure_notify_event_t&>(event).window;
    case XCB_REPARENT_NOTIFY:
        return reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window;
    case XCB_MAP_NOTIFY:
        return reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
    case XCB_UNMAP_NOTIFY:
        return reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
    case XCB_DESTROY_NOTIFY:
        return reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
    case XCB_PROPERTY_NOTIFY:
        return reinterpret_cast<const xcb_property_notify_event_t&>(event).window;
    default:
        return kNoWindow;
    }
}

} // namespace

WindowFactsRequest::WindowFactsRequest(XConnection& connection, WindowManager& manager,
                                       OutermostAncestors& ancestors, xcb_window_t window)
    : geometry_(connection, manager, ancestors, window), traits_(connection, window) {}

std::optional<WindowFacts> WindowFactsRequest::take() {
    const auto geometry = geometry_.take();
    const auto traits = traits_.take();
    return geometry ? std::optional(WindowFacts{*geometry, traits}) : std::nullopt;
}

bool WindowFactsRequest::isBefore(const xcb_generic_event_t& event) const {
    // The numbers of requests wrap around.
    return static_cast<std::int32_t>(event.full_sequence - geometry_.sequence()) >= 0;
}

WindowFactsOfTurn::WindowFactsOfTurn(XConnection& connection, WindowManager& manager,
                                     MainLoop& mainLoop)
    : connection_(connection), manager_(manager), ancestors_(connection),
      turnEnd_(mainLoop, [this] { forgetAll(); }),
      arrivals_(connection.onArrival([this](const auto& event) { noteArrival(event); })) {}

void WindowFactsOfTurn::ask(xcb_window_t window) {
    auto& asked = asked_[window];
    if (!asked || asked->isOutdated) {
        asked.reset(new Asked{{connection_, manager_, ancestors_, window}});
        turnEnd_.await();
    }
}

std::optional<WindowFacts> WindowFactsOfTurn::of(xcb_window_t window) {
    ask(window);
    auto& asked = *asked_.at(window);
    if (!asked.isAnswered) {
        asked.facts = asked.request.take();
        asked.isAnswered = true;
    }
    return asked.facts;
}

std::optional<WindowFacts> WindowFactsOfTurn::anew(xcb_window_t window) {
    forget(window);
    return of(window);
}

std::optional<WindowFacts> WindowFactsOfTurn::known(xcb_window_t window) const {
    const auto asked = asked_.find(window);
    return asked == asked_.end() || asked->second->isOutdated ? std::nullopt : asked->second->facts;
}

void WindowFactsOfTurn::noteArrival(const xcb_generic_event_t& event) {
    const auto changed = asked_.find(changedBy(event));
    if (changed != asked_.end() && changed->second->request.isBefore(event)) {
        changed->second->isOutdated = true;
    }
}

} // namespace panewright
