#include "support/frames.h"

#include "support/eventually.h"

#include <ostream>
#include <stdexcept>

namespace panewright::test {
namespace {

/// Left, right, top, bottom.
std::array<int, 4> extents(const XClient& x, xcb_window_t window, std::string_view property) {
    const std::vector<std::uint32_t> values = x.property(window, property);
    std::array<int, 4> extents{};
    for (std::size_t i = 0; i < extents.size() && values.size() == extents.size(); ++i) {
        extents.at(i) = static_cast<int>(values.at(i));
    }
    return extents;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const Frame& frame) {
    return stream << "(" << frame.x << ", " << frame.y << ", " << frame.width << ", "
                  << frame.height << ")";
}

Frame outerFrame(const XClient& x, xcb_window_t window) {
    xcb_connection_t* connection = x.connection();
    const ReplyPointer<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    const ReplyPointer<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
        connection, xcb_translate_coordinates(connection, window, x.root(), 0, 0), nullptr));
    if (!geometry || !origin) {
        return {};
    }
    const auto added = extents(x, window, "_NET_FRAME_EXTENTS");
    const auto shadow = extents(x, window, "_GTK_FRAME_EXTENTS");
    const int border = geometry->border_width;
    return {
        .x = origin->dst_x - border - added[0] + shadow[0],
        .y = origin->dst_y - border - added[2] + shadow[2],
        .width = geometry->width + 2 * border + added[0] + added[1] - shadow[0] - shadow[1],
        .height = geometry->height + 2 * border + added[2] + added[3] - shadow[2] - shadow[3],
    };
}

Frame frameOnceItIs(const Frame& expected, const XClient& x, xcb_window_t window) {
    Frame frame;
    eventually([&] { return (frame = outerFrame(x, window)) == expected; });
    return frame;
}

void placeWindow(const XClient& x, xcb_window_t window, const Frame& frame) {
    constexpr std::uint32_t kNorthWest = 1;
    constexpr std::uint32_t kAllFour = 0xF << 8;
    constexpr std::uint32_t kPager = 2 << 12;
    const auto added = extents(x, window, "_NET_FRAME_EXTENTS");
    x.sendToWindowManager(window, "_NET_MOVERESIZE_WINDOW",
                          {kNorthWest | kAllFour | kPager, static_cast<std::uint32_t>(frame.x),
                           static_cast<std::uint32_t>(frame.y),
                           static_cast<std::uint32_t>(frame.width - added[0] - added[1]),
                           static_cast<std::uint32_t>(frame.height - added[2] - added[3])});
    if (frameOnceItIs(frame, x, window) != frame) {
        throw std::runtime_error("the window manager does not place the window as asked");
    }
}

} // namespace panewright::test
