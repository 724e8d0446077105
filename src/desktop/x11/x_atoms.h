#pragma once

#include <xcb/xcb.h>

#include <string>
#include <vector>

namespace panewright {

/// Every atom that the adapter uses, under its name on the wire.
#define PANEWRIGHT_X_ATOMS(X)                                                                      \
    X(EDID)                                                                                        \
    X(MANAGER)                                                                                     \
    X(WM_CLIENT_MACHINE)                                                                           \
    X(_GTK_APPLICATION_ID)                                                                         \
    X(_GTK_FRAME_EXTENTS)                                                                          \
    X(_KDE_NET_WM_DESKTOP_FILE)                                                                    \
    X(_NET_ACTIVE_WINDOW)                                                                          \
    X(_NET_CLIENT_LIST)                                                                            \
    X(_NET_CURRENT_DESKTOP)                                                                        \
    X(_NET_FRAME_EXTENTS)                                                                          \
    X(_NET_MOVERESIZE_WINDOW)                                                                      \
    X(_NET_REQUEST_FRAME_EXTENTS)                                                                  \
    X(_NET_SUPPORTED)                                                                              \
    X(_NET_SUPPORTING_WM_CHECK)                                                                    \
    X(_NET_WM_ACTION_MOVE)                                                                         \
    X(_NET_WM_ACTION_RESIZE)                                                                       \
    X(_NET_WM_ALLOWED_ACTIONS)                                                                     \
    X(_NET_WM_DESKTOP)                                                                             \
    X(_NET_WM_ICON)                                                                                \
    X(_NET_WM_NAME)                                                                                \
    X(_NET_WM_PID)                                                                                 \
    X(_NET_WM_STATE)                                                                               \
    X(_NET_WM_STATE_FULLSCREEN)                                                                    \
    X(_NET_WM_STATE_MAXIMIZED_HORZ)                                                                \
    X(_NET_WM_STATE_MAXIMIZED_VERT)                                                                \
    X(_NET_WM_STATE_SHADED)                                                                        \
    X(_NET_WM_STATE_SKIP_PAGER)                                                                    \
    X(_NET_WM_STATE_SKIP_TASKBAR)                                                                  \
    X(_NET_WM_STRUT)                                                                               \
    X(_NET_WM_STRUT_PARTIAL)                                                                       \
    X(_NET_WM_WINDOW_TYPE)                                                                         \
    X(_NET_WM_WINDOW_TYPE_DESKTOP)                                                                 \
    X(_NET_WM_WINDOW_TYPE_DOCK)                                                                    \
    X(_NET_WM_WINDOW_TYPE_NORMAL)                                                                  \
    X(_NET_WORKAREA)

struct XAtoms {
#define PANEWRIGHT_X_ATOM_MEMBER(name) xcb_atom_t name = XCB_ATOM_NONE; // NOLINT(bugprone-*)
    PANEWRIGHT_X_ATOMS(PANEWRIGHT_X_ATOM_MEMBER)
#undef PANEWRIGHT_X_ATOM_MEMBER

    // The manager selections of the screen that $DISPLAY names (ICCCM 2.8): of the tray for icons
    // that are windows, and of the compositing manager (EWMH).
    xcb_atom_t systemTrayOfScreen = XCB_ATOM_NONE;
    xcb_atom_t compositorOfScreen = XCB_ATOM_NONE;
};

/// All atoms, asked for. The connection must outlive it.
class XAtomsRequest {
public:
    /// `screen` is the number of the screen.
    XAtomsRequest(xcb_connection_t* connection, int screen);

    /// Waits for the answers. Once only; one that is not there is XCB_ATOM_NONE.
    XAtoms take();

private:
    void ask(const std::string& name, xcb_atom_t XAtoms::*member);

    struct Asked {
        xcb_intern_atom_cookie_t cookie;
        xcb_atom_t XAtoms::*member;
    };

    xcb_connection_t* connection_;
    std::vector<Asked> asked_;
};

} // namespace panewright
