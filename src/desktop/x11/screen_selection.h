#pragma once

#include "desktop/x11/x_connection.h"

#include <string_view>

namespace panewright {

/// The manager selection (ICCCM 2.8) of the screen that $DISPLAY names, such as _NET_WM_CM_S0 for
/// the prefix _NET_WM_CM_S.
xcb_atom_t screenSelection(XConnection& connection, std::string_view prefix);

/// kNoWindow without one.
xcb_window_t selectionOwner(XConnection& connection, xcb_atom_t selection);

} // namespace panewright
