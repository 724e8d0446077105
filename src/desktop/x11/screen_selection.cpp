#include "desktop/x11/screen_selection.h"

namespace panewright {

xcb_window_t selectionOwner(XConnection& connection, xcb_atom_t selection) {
    const auto reply = connection.reply(xcb_get_selection_owner_reply,
                                        xcb_get_selection_owner(connection, selection));
    return reply ? reply->owner : kNoWindow;
}

} // namespace panewright
