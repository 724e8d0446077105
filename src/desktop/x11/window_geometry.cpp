#include "desktop/x11/window_geometry.h"

#include <algorithm>

namespace panewright {
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

Rect grownBy(const Rect& rect, const Extents& by) {
    return {rect.x - by.left, rect.y - by.top, rect.width + by.left + by.right,
            rect.height + by.top + by.bottom};
}

Rect shrunkBy(const Rect& rect, const Extents& by) {
    return grownBy(rect, {-by.left, -by.right, -by.top, -by.bottom});
}

BorderedRectRequest::BorderedRectRequest(XConnection& connection, xcb_window_t window)
    : connection_(connection), geometry_(xcb_get_geometry(connection, window)),
      origin_(xcb_translate_coordinates(connection, window, connection.root(), 0, 0)) {}

BorderedRectRequest::~BorderedRectRequest() {
    if (!taken_) {
        xcb_discard_reply(connection_, geometry_.sequence);
        xcb_discard_reply(connection_, origin_.sequence);
    }
}

std::optional<Rect> BorderedRectRequest::take(std::int32_t* border) {
    taken_ = true;
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

} // namespace panewright
