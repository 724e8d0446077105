#include "desktop/x11/x11_work_areas.h"

#include "desktop/x11/x_properties.h"

#include <algorithm>
#include <deque>
#include <limits>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// A panel that starts or goes changes several things at once.
constexpr auto kSettlingTime = 50ms;

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

std::vector<std::uint32_t> takeFirst(std::deque<XPropertyRequest>& requests) {
    auto numbers = requests.front().numbers();
    requests.pop_front();
    return numbers;
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

X11WorkAreas::X11WorkAreas(XConnection& connection, WindowManager& manager,
                           const Displays& displays, MainLoop& mainLoop)
    : connection_(connection), displays_(displays), mainLoop_(mainLoop),
      rootSelection_(connection.selectEvents(
          connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY)),
      arrivals_(connection.onArrival([this](const auto& event) { noteArrival(event); })),
      events_(connection.onEvent([this](const auto& event) { handle(event); })),
      managerChanges_(manager.onChange([this] { readSoon(); })) {
    readSoon();
}

void X11WorkAreas::readIfUnread() const {
    if (!isRead_) {
        const auto asked = xcb_get_geometry(connection_, connection_.root());
        read();
        if (const auto root = connection_.reply(xcb_get_geometry_reply, asked)) {
            screen_ = {static_cast<double>(root->width), static_cast<double>(root->height)};
        }
    }
}

Rect X11WorkAreas::workArea(DisplayId display) const {
    readIfUnread();
    return areaWithoutStruts(displayWithId(displays_.snapshot(), display).bounds, screen_, struts_);
}

std::vector<DisplayArea> X11WorkAreas::all() const {
    readIfUnread();
    std::vector<DisplayArea> areas;
    for (const auto& display : displays_.snapshot()) {
        areas.push_back({display.bounds, areaWithoutStruts(display.bounds, screen_, struts_)});
    }
    return areas;
}

void X11WorkAreas::noteArrival(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_CONFIGURE_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        if (change.window == connection_.root()) {
            screen_ = {static_cast<double>(change.width), static_cast<double>(change.height)};
        }
    }
}

void X11WorkAreas::handle(const xcb_generic_event_t& event) {
    const auto& atoms = connection_.atoms();
    if (isRootProperty(connection_, event, atoms._NET_CLIENT_LIST) ||
        isRootProperty(connection_, event, atoms._NET_WORKAREA) || isOfPanel(event)) {
        readSoon();
    }
}

bool X11WorkAreas::isOfPanel(const xcb_generic_event_t& event) const {
    switch (event.response_type) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const auto& atoms = connection_.atoms();
        return (change.atom == atoms._NET_WM_STRUT_PARTIAL || change.atom == atoms._NET_WM_STRUT) &&
               followed_.contains(change.window);
    }
    case XCB_MAP_NOTIFY:
        return followed_.contains(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
    case XCB_UNMAP_NOTIFY:
        return followed_.contains(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
    case XCB_DESTROY_NOTIFY:
        return followed_.contains(
            reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    default:
        return false;
    }
}

void X11WorkAreas::readSoon() const {
    if (!pendingRead_) {
        pendingRead_ = mainLoop_.after(kSettlingTime, [this] {
            pendingRead_.release();
            isRead_ ? read() : readIfUnread();
        });
    }
}

void X11WorkAreas::read() const {
    isRead_ = true;
    XPropertyRequest clients(connection_, connection_.root(), connection_.atoms()._NET_CLIENT_LIST,
                             kMaxClients);
    Followed followed;
    struts_ = strutsOf(clients.numbers(), followed, true);
    if (struts_.empty()) {
        // Some managers leave panels out of their list, such as i3.
        struts_ = strutsOf(outerWindows(), followed, false);
    }
    followed_ = std::move(followed);
}

std::vector<StrutPartial> X11WorkAreas::strutsOf(const std::vector<xcb_window_t>& windows,
                                                 Followed& followed, bool areListed) const {
    const auto& atoms = connection_.atoms();
    std::deque<XPropertyRequest> requests;
    for (const auto window : windows) {
        for (const auto property :
             {atoms._NET_WM_STRUT_PARTIAL, atoms._NET_WM_STRUT, atoms._NET_WM_WINDOW_TYPE}) {
            requests.emplace_back(connection_, window, property);
        }
    }
    std::vector<StrutPartial> struts;
    for (const auto window : windows) {
        const auto exact = takeFirst(requests);
        const auto rough = takeFirst(requests);
        const auto types = takeFirst(requests);
        const bool isDock = std::ranges::find(types, atoms._NET_WM_WINDOW_TYPE_DOCK) != types.end();
        if (isDock || !exact.empty() || !rough.empty()) {
            follow(window, followed);
        }
        StrutPartial strut{};
        if (exact.size() >= strut.size()) {
            std::copy_n(exact.begin(), strut.size(), strut.begin());
        } else if (rough.size() >= 4) {
            strut = alongWholeEdges(rough);
        } else {
            continue;
        }
        if (areListed || mayBeManaged(window)) {
            struts.push_back(strut);
        }
    }
    return struts;
}

void X11WorkAreas::follow(xcb_window_t window, Followed& followed) const {
    if (const auto known = followed_.find(window); known != followed_.end()) {
        followed.insert(followed_.extract(known));
        return;
    }
    if (auto& selection = followed[window]; !selection) {
        selection = connection_.selectEvents(window, XCB_EVENT_MASK_PROPERTY_CHANGE |
                                                         XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        readSoon(); // it may have changed since it was read
    }
}

bool X11WorkAreas::mayBeManaged(xcb_window_t window) const {
    const auto attributes = connection_.reply(xcb_get_window_attributes_reply,
                                              xcb_get_window_attributes(connection_, window));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
           attributes->override_redirect == 0;
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
