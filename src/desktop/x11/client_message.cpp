#include "desktop/x11/client_message.h"

#include <algorithm>

namespace panewright {

void sendToManager(XConnection& connection, xcb_window_t window, xcb_atom_t message,
                   const std::array<std::uint32_t, 5>& data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = message;
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(connection, 0, connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
}

} // namespace panewright
