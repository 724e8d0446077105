#include "desktop/x11/x11_own_windows.h"

#include "desktop/x11/screen_selection.h"

#include <array>

namespace panewright {

X11OwnWindows::X11OwnWindows(XConnection& connection, X11Workspace& workspace)
    : connection_(connection), workspace_(workspace) {}

bool X11OwnWindows::areComposited() const {
    return selectionOwner(connection_, connection_.atoms().compositorOfScreen) != kNoWindow;
}

/// A window that is not mapped carries the states that it is to be mapped with (EWMH,
/// _NET_WM_STATE). The toolkit adds its own to what it finds, so this must be there before.
void X11OwnWindows::keepOutOfTaskBars(NativeWindow window) {
    const auto& atoms = connection_.atoms();
    const std::array states{atoms._NET_WM_STATE_SKIP_TASKBAR, atoms._NET_WM_STATE_SKIP_PAGER};
    connection_.succeeded(xcb_change_property_checked(
        connection_, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window), atoms._NET_WM_STATE,
        XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(states.size()), states.data()));
}

} // namespace panewright
