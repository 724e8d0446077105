#include "desktop/x11/x11_work_areas.h"

#include "desktop/x11/x_properties.h"

#include <algorithm>
#include <deque>
#include <limits>

namespace panewright {
namespace {

/// A strip along one edge of the screen.
struct Strip {
    double width = 0;
    double first = 0;
    double last = 0;
};

Strip stripOf(const StrutPartial& strut, std::size_t edge) {
    return {static_cast<double>(strut.at(edge)), static_cast<double>(strut.at(4 + 2 * edge)),
            static_cast<double>(strut.at(5 + 2 * edge))};
}

/// How far the strip reaches into a display that begins `distance` behind the screen's edge, is
/// `depth` deep and lies between `first` and `end` along that edge.
double reach(const Strip& strip, double distance, double depth, double first, double end) {
    const bool isBeside = strip.first < end && strip.last >= first;
    const double reached = strip.width - distance;
    return isBeside && reached > 0 && reached < depth ? reached : 0;
}

StrutPartial alongWholeEdges(const std::vector<std::uint32_t>& widths) {
    constexpr auto kEnd = std::numeric_limits<std::uint32_t>::max();
    return {widths[0], widths[1], widths[2], widths[3], 0, kEnd, 0, kEnd, 0, kEnd, 0, kEnd};
}

} // namespace

Rect areaWithoutStruts(const Rect& display, Size screen, const std::vector<StrutPartial>& struts) {
    const double right = display.x + display.width;
    const double bottom = display.y + display.height;
    std::array<double, 4> reserved{};
    for (const auto& strut : struts) {
        const std::array<double, 4> reaches{
            reach(stripOf(strut, 0), display.x, display.width, display.y, bottom),
            reach(stripOf(strut, 1), screen.width - right, display.width, display.y, bottom),
            reach(stripOf(strut, 2), display.y, display.height, display.x, right),
            reach(stripOf(strut, 3), screen.height - bottom, display.height, display.x, right)};
        std::transform(reserved.begin(), reserved.end(), reaches.begin(), reserved.begin(),
                       [](double a, double b) { return std::max(a, b); });
    }
    const Rect area{display.x + reserved[0], display.y + reserved[2],
                    display.width - reserved[0] - reserved[1],
                    display.height - reserved[2] - reserved[3]};
    return area.width > 0 && area.height > 0 ? area : display;
}

Rect X11WorkAreas::workArea(DisplayId display) const {
    const auto root = xcb_get_geometry(connection_, connection_.root());
    const auto struts = readStruts();
    const auto screen = connection_.reply(xcb_get_geometry_reply, root);
    const Rect bounds = displays_.bounds(display);
    return screen ? areaWithoutStruts(
                        bounds,
                        {static_cast<double>(screen->width), static_cast<double>(screen->height)},
                        struts)
                  : bounds;
}

std::vector<StrutPartial> X11WorkAreas::readStruts() const {
    XPropertyRequest clients(connection_, connection_.root(), connection_.atoms()._NET_CLIENT_LIST,
                             kMaxClients);
    const auto struts = strutsOf(clients.numbers());
    // Some managers leave panels out of their list, such as i3.
    return struts.empty() ? strutsOf(outerWindows()) : struts;
}

std::vector<StrutPartial> X11WorkAreas::strutsOf(const std::vector<xcb_window_t>& windows) const {
    std::deque<XPropertyRequest> partial;
    std::deque<XPropertyRequest> whole;
    for (const auto window : windows) {
        partial.emplace_back(connection_, window, connection_.atoms()._NET_WM_STRUT_PARTIAL);
        whole.emplace_back(connection_, window, connection_.atoms()._NET_WM_STRUT);
    }
    std::vector<StrutPartial> struts;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto exact = partial[i].numbers();
        const auto rough = whole[i].numbers();
        if (StrutPartial strut{}; exact.size() >= strut.size()) {
            std::copy_n(exact.begin(), strut.size(), strut.begin());
            struts.push_back(strut);
        } else if (rough.size() >= 4) {
            struts.push_back(alongWholeEdges(rough));
        }
    }
    return struts;
}

std::vector<xcb_window_t> X11WorkAreas::outerWindows() const {
    std::vector<xcb_window_t> parents{connection_.root()};
    std::vector<xcb_window_t> found;
    for (int depth = 0; depth < 2; ++depth) {
        std::vector<xcb_query_tree_cookie_t> requests;
        requests.reserve(parents.size());
        for (const auto parent : parents) {
            requests.push_back(xcb_query_tree(connection_, parent));
        }
        parents.clear();
        for (const auto& request : requests) {
            if (const auto tree = connection_.reply(xcb_query_tree_reply, request)) {
                const auto* first = xcb_query_tree_children(tree.get());
                parents.insert(parents.end(), first, first + tree->children_len);
            }
        }
        parents.resize(std::min<std::size_t>(parents.size(), kMaxClients));
        found.insert(found.end(), parents.begin(), parents.end());
    }
    return found;
}

} // namespace panewright
