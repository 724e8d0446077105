#pragma once

#include "base/geometry.h"
#include "desktop/x11/outermost_ancestors.h"
#include "desktop/x11/window_manager.h"
#include "desktop/x11/x_connection.h"
#include "desktop/x11/x_properties.h"

#include <cstdint>
#include <optional>

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

/// A geometry that has been asked for, so that other questions can join the round trip. What is
/// asked of two windows in one go is hardly ever answered with a move between.
class GeometryRequest {
public:
    GeometryRequest(XConnection& connection, WindowManager& manager, OutermostAncestors& ancestors,
                    xcb_window_t window);
    /// Once. Nil for a window that is gone.
    std::optional<WindowGeometry> take();

    /// The number of the first request of it.
    unsigned sequence() const { return client_.sequence(); }

private:
    /// Nil where the manager says what it put around the window.
    std::optional<xcb_window_t> outermost_;
    BorderedRectRequest client_;
    XPropertyRequest shadow_;
    /// One of the two.
    std::optional<XPropertyRequest> decoration_;
    std::optional<BorderedRectRequest> outer_;
};

} // namespace panewright
