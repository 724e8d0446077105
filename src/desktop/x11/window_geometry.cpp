#include "desktop/x11/window_geometry.h"

#include "desktop/x11/x_properties.h"

#include <algorithm>

namespace panewright {
namespace {

/// CARDINAL[4] of left, right, top, bottom (EWMH, _NET_FRAME_EXTENTS). None where that is no frame:
/// X has no coordinates beyond.
Extents extentsFrom(const std::vector<std::uint32_t>& numbers) {
    constexpr std::uint32_t kLargest = 32767;
    if (numbers.size() < 4 || std::ranges::max(numbers) > kLargest) {
        return {};
    }
    return {static_cast<std::int32_t>(numbers[0]), static_cast<std::int32_t>(numbers[1]),
            static_cast<std::int32_t>(numbers[2]), static_cast<std::int32_t>(numbers[3])};
}

Extents extentsBetween(const Rect& inner, const Rect& outer) {
    return {static_cast<std::int32_t>(inner.x - outer.x),
            static_cast<std::int32_t>(outer.x + outer.width - inner.x - inner.width),
            static_cast<std::int32_t>(inner.y - outer.y),
            static_cast<std::int32_t>(outer.y + outer.height - inner.y - inner.height)};
}

/// The window with its border, in root coordinates; asked for when this is made. What is asked of
/// two windows in one go is hardly ever answered with a move between.
class BorderedRectRequest {
public:
    BorderedRectRequest(XConnection& connection, xcb_window_t window)
        : connection_(connection), geometry_(xcb_get_geometry(connection, window)),
          origin_(xcb_translate_coordinates(connection, window, connection.root(), 0, 0)) {}

    /// Once. Nil for a window that is gone.
    std::optional<Rect> take(std::int32_t* border = nullptr) {
        const auto size = connection_.reply(xcb_get_geometry_reply, geometry_);
        const auto at = connection_.reply(xcb_translate_coordinates_reply, origin_);
        if (!size || !at) {
            return std::nullopt;
        }
        const std::int32_t around = size->border_width;
        if (border) {
            *border = around;
        }
        return grownBy({static_cast<double>(at->dst_x), static_cast<double>(at->dst_y),
                        static_cast<double>(size->width), static_cast<double>(size->height)},
                       {around, around, around, around});
    }

private:
    XConnection& connection_;
    xcb_get_geometry_cookie_t geometry_;
    xcb_translate_coordinates_cookie_t origin_;
};

} // namespace

Rect grownBy(const Rect& rect, const Extents& by) {
    return {rect.x - by.left, rect.y - by.top, rect.width + by.left + by.right,
            rect.height + by.top + by.bottom};
}

Rect shrunkBy(const Rect& rect, const Extents& by) {
    return grownBy(rect, {-by.left, -by.right, -by.top, -by.bottom});
}

std::optional<WindowGeometry> readGeometry(XConnection& connection, WindowManager& manager,
                                           xcb_window_t window) {
    const auto& atoms = connection.atoms();
    const bool managerTells = manager.supports(atoms._NET_FRAME_EXTENTS);
    const auto ancestor = managerTells ? std::nullopt : outermostAncestor(connection, window);
    XPropertyRequest decoration(connection, window, atoms._NET_FRAME_EXTENTS);
    XPropertyRequest shadow(connection, window, atoms._GTK_FRAME_EXTENTS);
    WindowGeometry geometry;
    BorderedRectRequest clientRequest(connection, window);
    BorderedRectRequest outerRequest(connection, ancestor.value_or(window));
    const auto client = clientRequest.take(&geometry.border);
    const auto outer = outerRequest.take();
    if (!client) {
        return std::nullopt;
    }
    geometry.client = *client;
    geometry.shadow = extentsFrom(shadow.numbers());
    if (managerTells) {
        geometry.decoration = extentsFrom(decoration.numbers());
    } else {
        geometry.decoration = extentsBetween(*client, outer.value_or(*client));
    }
    return geometry;
}

std::optional<xcb_window_t> outermostAncestor(XConnection& connection, xcb_window_t window) {
    for (;;) {
        const auto tree =
            connection.reply(xcb_query_tree_reply, xcb_query_tree(connection, window));
        if (!tree) {
            return std::nullopt;
        }
        if (tree->parent == tree->root || tree->parent == kNoWindow) {
            return window;
        }
        window = tree->parent;
    }
}

} // namespace panewright
