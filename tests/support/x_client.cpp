#include "support/x_client.h"

#include <algorithm>
#include <stdexcept>

namespace panewright::test {

XClient::XClient(const std::string& display) : connection_(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) {
        xcb_disconnect(connection_);
        throw std::runtime_error("cannot connect to the X server " + display);
    }
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
}

XClient::~XClient() {
    xcb_disconnect(connection_);
}

xcb_atom_t XClient::atom(std::string_view name) const {
    const ReplyPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_,
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> XClient::property(xcb_window_t window, std::string_view name) const {
    constexpr std::uint32_t kMaximumLength = 1024;
    const ReplyPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, 0, window, atom(name), XCB_ATOM_ANY, 0, kMaximumLength),
        nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

void XClient::setProperty(xcb_window_t window, std::string_view name, xcb_atom_t type,
                          const std::vector<std::uint32_t>& values) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(name), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
}

void XClient::setText(xcb_window_t window, std::string_view property, std::string_view text) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_STRING,
                        8, static_cast<std::uint32_t>(text.size()), text.data());
}

void XClient::activate(xcb_window_t window) const {
    constexpr std::uint32_t kPager = 2;
    sendToWindowManager(window, "_NET_ACTIVE_WINDOW", {kPager, XCB_CURRENT_TIME});
}

xcb_window_t XClient::activeWindow() const {
    const auto active = property(root_, "_NET_ACTIVE_WINDOW");
    return active.empty() ? xcb_window_t{XCB_NONE} : active.front(); // xfwm4 adds a second number
}

void XClient::sendToWindowManager(xcb_window_t window, std::string_view message,
                                  const std::array<std::uint32_t, 5>& values) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::ranges::copy(values, event.data.data32);
    xcb_send_event(connection_, 0, root_,
                   XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY |
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection_);
}

void XClient::synchronize() const {
    const ReplyPointer<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

bool XClient::grabKey(std::uint16_t modifiers, xcb_keycode_t key) const {
    const ReplyPointer<xcb_generic_error_t> error(xcb_request_check(
        connection_, xcb_grab_key_checked(connection_, 0, root_, modifiers, key,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

} // namespace panewright::test
