#include "desktop/x11/x_embed_tray.h"

#include "desktop/x11/screen_selection.h"

namespace panewright {

XEmbedTray::XEmbedTray(XConnection& connection)
    : connection_(connection), selection_(connection.atoms().systemTrayOfScreen),
      // The message that announces a tray is sent to those who want the root's structure events.
      rootSelection_(connection.selectEvents(connection.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY)),
      events_(connection.onEvent([this](const auto& event) { handle(event); })) {
    findOwner();
}

void XEmbedTray::handle(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_CLIENT_MESSAGE) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.type != connection_.atoms().MANAGER || message.format != 32 ||
            message.data.data32[1] != selection_) {
            return;
        }
    } else if (event.response_type != XCB_DESTROY_NOTIFY || owner_ == kNoWindow ||
               reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window != owner_) {
        return;
    }
    const auto before = owner_;
    findOwner();
    if (owner_ != before) {
        changed_.notify();
    }
}

void XEmbedTray::findOwner() {
    owner_ = readOwner();
    // One that goes before its end can be heard of is no owner any more when asked again.
    for (auto known = kNoWindow; owner_ != known; owner_ = readOwner()) {
        known = owner_;
        ownerEvents_ = known == kNoWindow
                           ? Registration()
                           : connection_.selectEvents(known, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
}

xcb_window_t XEmbedTray::readOwner() {
    return selectionOwner(connection_, selection_);
}

} // namespace panewright
