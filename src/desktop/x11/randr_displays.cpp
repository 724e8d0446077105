#include "desktop/x11/randr_displays.h"

#include <fmt/format.h>
#include <xcb/randr.h>

#include <algorithm>
#include <tuple>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// A change of displays comes in a burst of events, with moments in which nothing is right.
constexpr auto kSettlingTime = 200ms;

/// A number for a connector's name that is the same at every start (FNV-1a).
std::uint32_t stableNumber(const std::string& name) {
    std::uint32_t hash = 2166136261U;
    for (const char byte : name) {
        hash = (hash ^ static_cast<std::uint8_t>(byte)) * 16777619U;
    }
    return hash;
}

std::vector<std::uint32_t> outputsOf(const xcb_randr_monitor_info_t& info) {
    const auto* first = xcb_randr_monitor_info_outputs(&info);
    return {first, first + xcb_randr_monitor_info_outputs_length(&info)};
}

} // namespace

RandrDisplays::RandrDisplays(XConnection& connection, MainLoop& mainLoop)
    : connection_(connection), mainLoop_(mainLoop),
      randrEvent_(connection.firstEventOf(xcb_randr_id)),
      // Monitors that are defined by hand change nothing but the root's configuration.
      rootSelection_(connection.selectEvents(connection.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY)),
      arrivals_(
          connection.onArrival([this](const auto& event) { stale_ = stale_ || isChange(event); })),
      events_(connection.onEvent([this](const auto& event) {
          if (isChange(event)) {
              reportSoon();
          }
      })) {
    if (randrEvent_) {
        constexpr std::uint32_t kMajor = 1; // monitors came with 1.5
        constexpr std::uint32_t kMinor = 5;
        connection.reply(xcb_randr_query_version_reply,
                         xcb_randr_query_version(connection, kMajor, kMinor));
        xcb_randr_select_input(
            connection, connection.root(),
            XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_PROPERTY);
        connection.flushSoon();
    }
    reported_ = monitors();
}

std::vector<DisplayId> RandrDisplays::activeDisplays(std::size_t capacity) const {
    return idsWhere([](const Monitor&) { return true; }, capacity);
}

std::vector<DisplayId> RandrDisplays::displaysWithPoint(Point point, std::size_t capacity) const {
    return idsWhere([&](const Monitor& m) { return contains(m.bounds, point); }, capacity);
}

std::vector<DisplayId> RandrDisplays::displaysWithRect(const Rect& rect,
                                                       std::size_t capacity) const {
    return idsWhere([&](const Monitor& m) { return intersects(m.bounds, rect); }, capacity);
}

DisplayId RandrDisplays::primaryDisplay(DisplayId display) const {
    const auto* monitor = find(display);
    return monitor ? monitor->mirrored : display;
}

Rect RandrDisplays::bounds(DisplayId display) const {
    const auto* monitor = find(display);
    return monitor ? monitor->bounds : Rect{};
}

Size RandrDisplays::pixelSize(DisplayId display) const {
    return bounds(display).size();
}

std::uint32_t RandrDisplays::serialNumber(DisplayId display) const {
    const auto* monitor = find(display);
    return monitor ? monitor->identity.serial : 0;
}

std::uint32_t RandrDisplays::vendorNumber(DisplayId display) const {
    const auto* monitor = find(display);
    return monitor ? monitor->identity.vendor : 0;
}

std::uint32_t RandrDisplays::unitNumber(DisplayId display) const {
    const auto* monitor = find(display);
    return monitor ? stableNumber(monitor->name) : 0;
}

std::vector<Screen> RandrDisplays::screens() const {
    std::vector<Screen> screens;
    for (const auto& monitor : monitors()) {
        if (monitor.mirrored == monitor.id) {
            screens.push_back({static_cast<std::int64_t>(monitor.id), monitor.name});
        }
    }
    return screens;
}

const std::vector<RandrDisplays::Monitor>& RandrDisplays::monitors() const {
    if (stale_) {
        stale_ = false;
        if (auto found = readMonitors(); !found.empty()) {
            monitors_ = std::move(found);
        } else if (monitors_.empty()) {
            monitors_ = {rootAsMonitor()};
        }
    }
    return monitors_;
}

std::vector<RandrDisplays::Monitor> RandrDisplays::readMonitors() const {
    std::vector<Monitor> found;
    if (!randrEvent_) {
        return found;
    }
    const auto reply = connection_.reply(
        xcb_randr_get_monitors_reply, xcb_randr_get_monitors(connection_, connection_.root(), 1));
    if (!reply) {
        return found;
    }
    for (auto infos = xcb_randr_get_monitors_monitors_iterator(reply.get()); infos.rem;
         xcb_randr_monitor_info_next(&infos)) {
        const auto& info = *infos.data;
        Monitor monitor{kNoDisplay,
                        kNoDisplay,
                        {static_cast<double>(info.x), static_cast<double>(info.y),
                         static_cast<double>(info.width), static_cast<double>(info.height)},
                        nameOf(info.name),
                        identityOf(outputsOf(info)),
                        info.primary != 0};
        monitor.id = idFor(monitor);
        found.push_back(std::move(monitor));
    }
    if (std::none_of(found.begin(), found.end(), [](const auto& m) { return m.primary; })) {
        for (auto& monitor : found) {
            monitor.primary = contains(monitor.bounds, {0, 0});
        }
    }
    std::sort(found.begin(), found.end(), [](const Monitor& a, const Monitor& b) {
        return std::tuple(!a.primary, a.bounds.x, a.bounds.y, a.name) <
               std::tuple(!b.primary, b.bounds.x, b.bounds.y, b.name);
    });
    for (auto& monitor : found) {
        const auto sameRect = [&](const Monitor& m) { return m.bounds == monitor.bounds; };
        monitor.mirrored = std::find_if(found.begin(), found.end(), sameRect)->id;
    }
    return found;
}

RandrDisplays::Monitor RandrDisplays::rootAsMonitor() const {
    Monitor monitor;
    monitor.name = "screen";
    monitor.primary = true;
    if (const auto root = connection_.reply(xcb_get_geometry_reply,
                                            xcb_get_geometry(connection_, connection_.root()))) {
        monitor.bounds = {0, 0, static_cast<double>(root->width),
                          static_cast<double>(root->height)};
    }
    monitor.id = idFor(monitor);
    monitor.mirrored = monitor.id;
    return monitor;
}

EdidIdentity RandrDisplays::identityOf(const std::vector<std::uint32_t>& outputs) const {
    constexpr std::uint32_t kLongsOfBlock = 32;
    for (const auto output : outputs) {
        const auto property = connection_.reply(
            xcb_randr_get_output_property_reply,
            xcb_randr_get_output_property(connection_, output, connection_.atoms().EDID,
                                          XCB_GET_PROPERTY_TYPE_ANY, 0, kLongsOfBlock, 0, 0));
        if (!property) {
            continue;
        }
        const auto* bytes = xcb_randr_get_output_property_data(property.get());
        const auto size = xcb_randr_get_output_property_data_length(property.get());
        if (const auto identity = parseEdid({bytes, static_cast<std::size_t>(size)})) {
            return *identity;
        }
    }
    return {};
}

const RandrDisplays::Monitor* RandrDisplays::find(DisplayId display) const {
    const auto& all = monitors();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Monitor& m) { return m.id == display; });
    return found == all.end() ? nullptr : &*found;
}

DisplayId RandrDisplays::idFor(const Monitor& monitor) const {
    const auto key = fmt::format("{} {} {} {}", monitor.identity.vendor, monitor.identity.product,
                                 monitor.identity.serial, monitor.name);
    return ids_.try_emplace(key, static_cast<DisplayId>(ids_.size() + 1)).first->second;
}

std::string RandrDisplays::nameOf(xcb_atom_t atom) const {
    const auto reply =
        connection_.reply(xcb_get_atom_name_reply, xcb_get_atom_name(connection_, atom));
    return reply ? std::string(xcb_get_atom_name_name(reply.get()),
                               xcb_get_atom_name_name_length(reply.get()))
                 : std::string();
}

template <class Predicate>
std::vector<DisplayId> RandrDisplays::idsWhere(Predicate predicate, std::size_t capacity) const {
    std::vector<DisplayId> ids;
    for (const auto& monitor : monitors()) {
        if (ids.size() < capacity && predicate(monitor)) {
            ids.push_back(monitor.id);
        }
    }
    return ids;
}

bool RandrDisplays::isChange(const xcb_generic_event_t& event) const {
    const auto isRandr = [&](int offset) {
        return randrEvent_ && event.response_type == *randrEvent_ + offset;
    };
    const bool isRoot =
        event.response_type == XCB_CONFIGURE_NOTIFY &&
        reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == connection_.root();
    return isRoot || isRandr(XCB_RANDR_SCREEN_CHANGE_NOTIFY) || isRandr(XCB_RANDR_NOTIFY);
}

void RandrDisplays::reportSoon() {
    pendingReport_ = mainLoop_.after(kSettlingTime, [this] {
        if (monitors() != reported_) {
            reported_ = monitors();
            changed_.notify();
        }
    });
}

} // namespace panewright
