#include "support/frames.h"

#include <algorithm>
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

/// The window with its X border; all zero for a window that is gone.
Frame borderedFrame(const XClient& x, xcb_window_t window) {
    xcb_connection_t* connection = x.connection();
    const ReplyPointer<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    const ReplyPointer<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
        connection, xcb_translate_coordinates(connection, window, x.root(), 0, 0), nullptr));
    if (!geometry || !origin) {
        return {};
    }
    const double border = geometry->border_width;
    return {origin->dst_x - border, origin->dst_y - border, geometry->width + 2 * border,
            geometry->height + 2 * border};
}

xcb_window_t outermostAncestor(const XClient& x, xcb_window_t window) {
    for (;;) {
        const ReplyPointer<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(x.connection(), xcb_query_tree(x.connection(), window), nullptr));
        if (!tree || tree->parent == x.root()) {
            return window;
        }
        window = tree->parent;
    }
}

} // namespace

bool isManaged(const XClient& x) {
    const auto check = x.property(x.root(), "_NET_SUPPORTING_WM_CHECK");
    return !check.empty() && x.property(check[0], "_NET_SUPPORTING_WM_CHECK") == check;
}

bool tellsFrameExtents(const XClient& x) {
    const auto supported = x.property(x.root(), "_NET_SUPPORTED");
    return std::ranges::find(supported, x.atom("_NET_FRAME_EXTENTS")) != supported.end();
}

Frame outerFrame(const XClient& x, xcb_window_t window) {
    // A manager that is gone has left its extents behind.
    const bool isTold = isManaged(x) && tellsFrameExtents(x);
    const Frame frame = borderedFrame(x, isTold ? window : outermostAncestor(x, window));
    if (frame == Frame{}) {
        return frame;
    }
    const auto added = isTold ? extents(x, window, "_NET_FRAME_EXTENTS") : std::array<int, 4>{};
    const auto shadow = extents(x, window, "_GTK_FRAME_EXTENTS");
    return {
        .x = frame.x - added[0] + shadow[0],
        .y = frame.y - added[2] + shadow[2],
        .width = frame.width + added[0] + added[1] - shadow[0] - shadow[1],
        .height = frame.height + added[2] + added[3] - shadow[2] - shadow[3],
    };
}

Frame frameOnceItIs(const Frame& expected, const XClient& x, xcb_window_t window,
                    std::chrono::milliseconds timeout) {
    Frame frame;
    eventually([&] { return (frame = outerFrame(x, window)) == expected; }, timeout);
    return frame;
}

void addStates(const XClient& x, xcb_window_t window, const std::vector<std::string>& states) {
    const auto contains = [](const std::vector<std::uint32_t>& atoms, xcb_atom_t atom) {
        return std::ranges::find(atoms, atom) != atoms.end();
    };
    constexpr std::uint32_t kAdd = 1;
    constexpr std::uint32_t kPager = 2;
    const auto supported = x.property(x.root(), "_NET_SUPPORTED");
    const auto first = x.atom(states.front());
    const xcb_atom_t second = states.size() > 1 ? x.atom(states.back()) : xcb_atom_t{};
    x.sendToWindowManager(window, "_NET_WM_STATE", {kAdd, first, second, kPager});
    for (const auto atom : {first, second}) {
        if (contains(supported, atom) &&
            !eventually([&] { return contains(x.property(window, "_NET_WM_STATE"), atom); })) {
            throw std::runtime_error("the window manager does not set " + states.front());
        }
    }
}

void placeWindow(const XClient& x, xcb_window_t window, const Frame& frame) {
    constexpr std::uint32_t kNorthWest = 1;
    constexpr std::uint32_t kAllFour = 0xF << 8;
    constexpr std::uint32_t kPager = 2 << 12;
    const auto added = extents(x, window, "_NET_FRAME_EXTENTS");
    x.sendToWindowManager(window, "_NET_MOVERESIZE_WINDOW",
                          {kNorthWest | kAllFour | kPager,
                           static_cast<std::uint32_t>(static_cast<int>(frame.x)),
                           static_cast<std::uint32_t>(static_cast<int>(frame.y)),
                           static_cast<std::uint32_t>(frame.width - added[0] - added[1]),
                           static_cast<std::uint32_t>(frame.height - added[2] - added[3])});
    if (frameOnceItIs(frame, x, window) != frame) {
        throw std::runtime_error("the window manager does not place the window as asked");
    }
}

} // namespace panewright::test
