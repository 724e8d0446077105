#include "desktop/x11/x_properties.h"

namespace panewright {

bool isRootProperty(const XConnection& connection, const xcb_generic_event_t& event,
                    xcb_atom_t property) {
    if (event.response_type != XCB_PROPERTY_NOTIFY) {
        return false;
    }
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    return change.window == connection.root() && change.atom == property;
}

XPropertyRequest::XPropertyRequest(XConnection& connection, xcb_window_t window,
                                   xcb_atom_t property, std::uint32_t longLength)
    : connection_(connection), cookie_(xcb_get_property(connection, 0, window, property,
                                                        XCB_GET_PROPERTY_TYPE_ANY, 0, longLength)) {
}

XPropertyRequest::~XPropertyRequest() {
    if (!taken_) {
        xcb_discard_reply(connection_, cookie_.sequence);
    }
}

XReply<xcb_get_property_reply_t> XPropertyRequest::take() {
    taken_ = true;
    return connection_.reply(xcb_get_property_reply, cookie_);
}

std::vector<std::uint32_t> XPropertyRequest::numbers() {
    const auto reply = take();
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::optional<std::uint32_t> XPropertyRequest::number() {
    const auto all = numbers();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

std::optional<std::string> XPropertyRequest::text() {
    const auto reply = take();
    if (!reply || reply->format != 8) {
        return std::nullopt;
    }
    const auto* first = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return std::string(first, reply->value_len);
}

} // namespace panewright
