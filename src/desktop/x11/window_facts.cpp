#include "desktop/x11/window_facts.h"

#include "desktop/x11/x_properties.h"

namespace panewright {

struct WindowFactsOfTurn::PropertiesRequest {
    PropertiesRequest(XConnection& connection, xcb_window_t window)
        : decoration(connection, window, connection.atoms()._NET_FRAME_EXTENTS),
          shadow(connection, window, connection.atoms()._GTK_FRAME_EXTENTS),
          traits(connection, window) {}

    WindowProperties take() {
        return {extentsFrom(decoration.numbers()), extentsFrom(shadow.numbers()), traits.take()};
    }

    XPropertyRequest decoration;
    XPropertyRequest shadow;
    TraitsRequest traits;
};

struct WindowFactsOfTurn::Asked {
    Asked(XConnection& connection, xcb_window_t window) : client(connection, window) {}

    /// Whether the answer may not tell yet of what the event does.
    bool isBefore(const xcb_generic_event_t& event) const {
        // The numbers of requests wrap around.
        return static_cast<std::int32_t>(event.full_sequence - client.sequence()) >= 0;
    }

    BorderedRectRequest client; // the first to be sent
    /// Of the frame, where the manager does not say what it put around the window.
    std::optional<BorderedRectRequest> outer;
    /// Unless they are known.
    std::optional<PropertiesRequest> properties;
    bool isAnswered = false;
    std::optional<WindowFacts> facts;
    bool isOutdated = false;
};

WindowFactsOfTurn::WindowFactsOfTurn(XConnection& connection, WindowManager& manager,
                                     MainLoop& mainLoop)
    : connection_(connection), manager_(manager), ancestors_(connection),
      turnEnd_(mainLoop, [this] { forgetAll(); }),
      arrivals_(connection.onArrival([this](const auto& event) { noteArrival(event); })),
      managerChanges_(manager.onChange([this] {
          properties_.reset();
          forgetAll();
      })) {}

void WindowFactsOfTurn::follow(xcb_window_t window) {
    followed_ = window;
    properties_.reset();
    selection_ = connection_.selectEvents(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                                      XCB_EVENT_MASK_PROPERTY_CHANGE);
    forget(window); // what was answered before may have changed since
}

void WindowFactsOfTurn::ask(xcb_window_t window) {
    if (const auto before = asked_.find(window);
        before != asked_.end() && !before->second->isOutdated) {
        return;
    }
    // Both may ask the server, and what arrives meanwhile is compared with what has been asked.
    const bool managerTells = manager_.supports(connection_.atoms()._NET_FRAME_EXTENTS);
    const auto outermost = managerTells ? std::nullopt : ancestors_.of(window);
    const auto asked = std::make_shared<Asked>(connection_, window);
    asked_[window] = asked;
    if (!managerTells) {
        asked->outer.emplace(connection_, outermost.value_or(window));
    }
    if (window != followed_ || !properties_) {
        asked->properties.emplace(connection_, window);
    }
    turnEnd_.await();
}

std::optional<WindowFacts> WindowFactsOfTurn::of(xcb_window_t window) {
    ask(window);
    const auto asked = asked_.at(window);
    if (!asked->isAnswered) {
        asked->isAnswered = true;
        asked->facts = take(window, *asked);
    }
    return asked->facts;
}

std::optional<WindowFacts> WindowFactsOfTurn::take(xcb_window_t window, Asked& asked) {
    WindowFacts facts;
    auto& geometry = facts.geometry;
    const auto client = asked.client.take(&geometry.border);
    if (!client) {
        return std::nullopt;
    }
    geometry.client = *client;
    const auto outer = asked.outer ? asked.outer->take() : std::nullopt;
    auto properties = asked.properties ? asked.properties->take() : properties_;
    if (!properties) { // they have changed while this was asked
        properties = PropertiesRequest(connection_, window).take();
    } else if (window == followed_ && !asked.isOutdated) {
        properties_ = properties;
    }
    geometry.decoration =
        asked.outer ? extentsBetween(*client, outer.value_or(*client)) : properties->decoration;
    geometry.shadow = properties->shadow;
    facts.traits = properties->traits;
    return facts;
}

std::optional<WindowFacts> WindowFactsOfTurn::anew(xcb_window_t window) {
    forget(window);
    return of(window);
}

std::optional<WindowFacts> WindowFactsOfTurn::known(xcb_window_t window) const {
    const auto asked = asked_.find(window);
    return asked == asked_.end() || asked->second->isOutdated ? std::nullopt : asked->second->facts;
}

/// The window whose frame, state or place the event tells of; none for other events.
xcb_window_t WindowFactsOfTurn::changedBy(const xcb_generic_event_t& event) const {
    switch (event.response_type) {
    case XCB_CONFIGURE_NOTIFY:
        return reinterpret_cast<const xcb_configure_notify_event_t&>(event).window;
    case XCB_REPARENT_NOTIFY:
        return reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window;
    case XCB_DESTROY_NOTIFY:
        return reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const auto& atoms = connection_.atoms();
        for (const xcb_atom_t atom :
             {atoms._NET_FRAME_EXTENTS, atoms._GTK_FRAME_EXTENTS, atoms._NET_WM_STATE,
              atoms._NET_WM_ALLOWED_ACTIONS, xcb_atom_t{XCB_ATOM_WM_NORMAL_HINTS}}) {
            if (change.atom == atom) {
                return change.window;
            }
        }
        return kNoWindow;
    }
    default:
        return kNoWindow;
    }
}

void WindowFactsOfTurn::noteArrival(const xcb_generic_event_t& event) {
    const auto changed = changedBy(event);
    if (changed == kNoWindow) {
        return;
    }
    if (changed == followed_ && event.response_type != XCB_CONFIGURE_NOTIFY) {
        properties_.reset();
    }
    const auto asked = asked_.find(changed);
    if (asked != asked_.end() && asked->second->isBefore(event)) {
        asked->second->isOutdated = true;
    }
}

} // namespace panewright
