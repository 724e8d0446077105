#include "support/frames.h"

#include <algorithm>
#include <stdexcept>

namespace panewright::test {
namespace {

bool contains(const std::vector<std::uint32_t>& atoms, xcb_atom_t atom) {
    return std::ranges::find(atoms, atom) != atoms.end();
}

/// Left, right, top, bottom.
std::vector<std::uint32_t> extents(const XClient& x, xcb_window_t window,
                                   std::string_view property) {
    auto values = x.property(window, property);
    values.resize(4);
    return values;
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
    return contains(x.property(x.root(), "_NET_SUPPORTED"), x.atom("_NET_FRAME_EXTENTS"));
}

Frame outerFrame(const XClient& x, xcb_window_t window) {
    // A manager that is gone has left its extents behind.
    const bool isTold = isManaged(x) && tellsFrameExtents(x);
    const Frame frame = borderedFrame(x, isTold ? window : outermostAncestor(x, window));
    if (frame == Frame{}) {
        return frame;
    }
    const auto added =
        isTold ? extents(x, window, "_NET_FRAME_EXTENTS") : std::vector<std::uint32_t>(4);
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
    constexpr std::uint32_t kAdd = 1, kPager = 2;
    const auto supported = x.property(x.root(), "_NET_SUPPORTED");
    const std::array<xcb_atom_t, 2> atoms{x.atom(states.front()), x.atom(states.back())};
    x.sendToWindowManager(window, "_NET_WM_STATE", {kAdd, atoms[0], atoms[1], kPager});
    for (const auto atom : atoms) {
        const auto isSet = [&] { return contains(x.property(window, "_NET_WM_STATE"), atom); };
        if (contains(supported, atom) && !eventually(isSet)) {
            throw std::runtime_error("the window manager does not set " + states.front());
        }
    }
}

void placeWindow(const XClient& x, xcb_window_t window, const Frame& frame) {
    constexpr std::uint32_t kNorthWest = 1, kAllFour = 0xF << 8, kPager = 2 << 12;
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
