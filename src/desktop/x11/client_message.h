#pragma once

#include "desktop/x11/x_connection.h"

#include <array>
#include <cstdint>

namespace panewright {

/// Source indication of requests that a person made through a pager or the like (EWMH, "Source
/// indication in requests").
constexpr std::uint32_t kSourcePager = 2;

/// Sends the window manager a message about the window, as EWMH lays it down for requests: to the
/// root, for those who select substructure events there. Nothing is flushed.
void sendToManager(XConnection& connection, xcb_window_t window, xcb_atom_t message,
                   const std::array<std::uint32_t, 5>& data);

} // namespace panewright
