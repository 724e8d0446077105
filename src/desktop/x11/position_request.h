#pragma once

#include "base/geometry.h"
#include "desktop/x11/window_geometry.h"

#include <cstdint>

namespace panewright {

/// Whether X can express it: finite, and within the 16 bits of a window's coordinates.
bool isExpressible(Point position);
bool isExpressible(Size size);

/// The gravity and reference point of a position that is asked for with _NET_MOVERESIZE_WINDOW.
struct PositionRequest {
    std::uint32_t gravity = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const PositionRequest&, const PositionRequest&) = default;
};

/// Asks for the client (with its border, in root coordinates) to stand at `client`. `gravity` is
/// the window's own: a request that names another makes some managers shift the window later. A
/// manager that sets no frame extents (`managerTells` false) takes the client's own coordinates.
PositionRequest positionRequest(const Rect& client, const Extents& decoration,
                                std::uint32_t gravity, bool managerTells);

} // namespace panewright
