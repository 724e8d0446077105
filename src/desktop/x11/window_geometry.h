#pragma once

#include "base/geometry.h"
#include "desktop/x11/x_connection.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace panewright {

/// Widths in pixels around a window.
struct Extents {
    std::int32_t left = 0;
    std::int32_t right = 0;
    std::int32_t top = 0;
    std::int32_t bottom = 0;

    friend bool operator==(const Extents&, const Extents&) = default;
};

Rect grownBy(const Rect& rect, const Extents& by);
Rect shrunkBy(const Rect& rect, const Extents& by);
Extents extentsBetween(const Rect& inner, const Rect& outer);

/// CARDINAL[4] of left, right, top, bottom (EWMH, _NET_FRAME_EXTENTS). None where that is no frame:
/// X has no coordinates beyond.
Extents extentsFrom(const std::vector<std::uint32_t>& numbers);

/// Where a window is, in root coordinates.
struct WindowGeometry {
    /// The client window with its X border, which is `border` wide on each side.
    Rect client;
    std::int32_t border = 0;
    /// What the manager put around it.
    Extents decoration;
    /// What a client-side decoration draws of its shadow, inside the client window.
    Extents shadow;

    /// The outer frame that a person sees.
    Rect frame() const { return shrunkBy(grownBy(client, decoration), shadow); }
    /// The client that has this outer frame, as long as decoration and shadow stay.
    Rect clientOf(const Rect& frame) const { return shrunkBy(grownBy(frame, shadow), decoration); }
};

/// A window with its X border, in root coordinates, that has been asked for.
class BorderedRectRequest {
public:
    BorderedRectRequest(XConnection& connection, xcb_window_t window);
    ~BorderedRectRequest();
    BorderedRectRequest(const BorderedRectRequest&) = delete;
    BorderedRectRequest& operator=(const BorderedRectRequest&) = delete;

    /// Once. Nil for a window that is gone.
    std::optional<Rect> take(std::int32_t* border = nullptr);

    unsigned sequence() const { return geometry_.sequence; }

private:
    XConnection& connection_;
    xcb_get_geometry_cookie_t geometry_;
    xcb_translate_coordinates_cookie_t origin_;
    bool taken_ = false;
};

} // namespace panewright
