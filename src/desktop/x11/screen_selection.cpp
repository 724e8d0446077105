#include "desktop/x11/screen_selection.h"

#include <fmt/core.h>

#include <algorithm>

namespace panewright {

xcb_atom_t screenSelection(XConnection& connection, std::string_view prefix) {
    const auto roots = connection.roots();
    const auto screen = std::find(roots.begin(), roots.end(), connection.root()) - roots.begin();
    const auto name = fmt::format("{}{}", prefix, screen);
    const auto atom = connection.reply(
        xcb_intern_atom_reply,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    return atom ? atom->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t selectionOwner(XConnection& connection, xcb_atom_t selection) {
    const auto reply = connection.reply(xcb_get_selection_owner_reply,
                                        xcb_get_selection_owner(connection, selection));
    return reply ? reply->owner : kNoWindow;
}

} // namespace panewright
