#pragma once

#include "desktop/x11/x_connection.h"

namespace panewright {

/// kNoWindow without one.
xcb_window_t selectionOwner(XConnection& connection, xcb_atom_t selection);

} // namespace panewright
