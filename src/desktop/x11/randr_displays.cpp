#include "desktop/x11/randr_displays.h"

#include <fmt/format.h>

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

struct Monitor {
    Display display;
    bool isPrimary = false;
};

/// The primary one first; one with the rectangle of an earlier one mirrors it.
DisplaySnapshot sorted(std::vector<Monitor> monitors) {
    if (std::none_of(monitors.begin(), monitors.end(), [](const auto& m) { return m.isPrimary; })) {
        for (auto& monitor : monitors) {
            monitor.isPrimary = contains(monitor.display.bounds, {0, 0});
        }
    }
    std::sort(monitors.begin(), monitors.end(), [](const Monitor& a, const Monitor& b) {
        const auto& [first, second] = std::tie(a.display, b.display);
        return std::tuple(!a.isPrimary, first.bounds.x, first.bounds.y, first.name) <
               std::tuple(!b.isPrimary, second.bounds.x, second.bounds.y, second.name);
    });
    DisplaySnapshot displays;
    for (auto& [display, isPrimary] : monitors) {
        const auto mirrored = std::find_if(
            displays.begin(), displays.end(),
            [&rect = display.bounds](const Display& other) { return other.bounds == rect; });
        display.mirrored = mirrored == displays.end() ? display.id : mirrored->id;
        displays.push_back(std::move(display));
    }
    return displays;
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
        xcb_discard_reply(connection, xcb_randr_query_version(connection, kMajor, kMinor).sequence);
        xcb_randr_select_input(
            connection, connection.root(),
            XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_PROPERTY);
        connection.flushSoon();
    }
    reported_ = snapshot();
}

const DisplaySnapshot& RandrDisplays::snapshot() const {
    if (stale_) {
        stale_ = false;
        if (auto found = read(); !found.empty()) {
            displays_ = std::move(found);
        } else if (displays_.empty()) {
            displays_ = {rootAsDisplay()};
        }
    }
    return displays_;
}

DisplaySnapshot RandrDisplays::read() const {
    const auto reply =
        randrEvent_ ? connection_.reply(xcb_randr_get_monitors_reply,
                                        xcb_randr_get_monitors(connection_, connection_.root(), 1))
                    : nullptr;
    if (!reply) {
        return {};
    }
    struct Asked {
        const xcb_randr_monitor_info_t& info;
        xcb_get_atom_name_cookie_t name;
        std::vector<xcb_randr_get_output_property_cookie_t> edids;
    };
    std::vector<Asked> asked;
    for (auto infos = xcb_randr_get_monitors_monitors_iterator(reply.get()); infos.rem;
         xcb_randr_monitor_info_next(&infos)) {
        const auto& info = *infos.data;
        asked.push_back({info, xcb_get_atom_name(connection_, info.name), askForEdids(info)});
    }
    std::vector<Monitor> monitors;
    for (const auto& [info, askedName, edids] : asked) {
        const auto identity = identityIn(edids);
        auto name = nameIn(askedName);
        const Rect bounds{static_cast<double>(info.x), static_cast<double>(info.y),
                          static_cast<double>(info.width), static_cast<double>(info.height)};
        const auto id = idFor(identity, name);
        monitors.push_back({{id, id, bounds, bounds.size(), identity.serial, identity.vendor,
                             stableNumber(name), std::move(name)},
                            info.primary != 0});
    }
    return sorted(std::move(monitors));
}

Display RandrDisplays::rootAsDisplay() const {
    Display display;
    display.name = "screen";
    if (const auto root = connection_.reply(xcb_get_geometry_reply,
                                            xcb_get_geometry(connection_, connection_.root()))) {
        display.bounds = {0, 0, static_cast<double>(root->width),
                          static_cast<double>(root->height)};
    }
    display.pixelSize = display.bounds.size();
    display.unitNumber = stableNumber(display.name);
    display.id = display.mirrored = idFor({}, display.name);
    return display;
}

std::vector<xcb_randr_get_output_property_cookie_t>
RandrDisplays::askForEdids(const xcb_randr_monitor_info_t& info) const {
    constexpr std::uint32_t kLongsOfBlock = 32;
    std::vector<xcb_randr_get_output_property_cookie_t> asked;
    for (const auto output : outputsOf(info)) {
        asked.push_back(xcb_randr_get_output_property(connection_, output, connection_.atoms().EDID,
                                                      XCB_GET_PROPERTY_TYPE_ANY, 0, kLongsOfBlock,
                                                      0, 0));
    }
    return asked;
}

EdidIdentity
RandrDisplays::identityIn(const std::vector<xcb_randr_get_output_property_cookie_t>& edids) const {
    std::optional<EdidIdentity> first;
    for (const auto& asked : edids) {
        const auto property = connection_.reply(xcb_randr_get_output_property_reply, asked);
        if (property && !first) {
            const auto* bytes = xcb_randr_get_output_property_data(property.get());
            const auto size = xcb_randr_get_output_property_data_length(property.get());
            first = parseEdid({bytes, static_cast<std::size_t>(size)});
        }
    }
    return first.value_or(EdidIdentity());
}

DisplayId RandrDisplays::idFor(const EdidIdentity& identity, const std::string& name) const {
    const auto key =
        fmt::format("{} {} {} {}", identity.vendor, identity.product, identity.serial, name);
    return ids_.try_emplace(key, static_cast<DisplayId>(ids_.size() + 1)).first->second;
}

std::string RandrDisplays::nameIn(xcb_get_atom_name_cookie_t asked) const {
    const auto reply = connection_.reply(xcb_get_atom_name_reply, asked);
    return reply ? std::string(xcb_get_atom_name_name(reply.get()),
                               xcb_get_atom_name_name_length(reply.get()))
                 : std::string();
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
        if (snapshot() != reported_) {
            reported_ = snapshot();
            changed_.notify();
        }
    });
}

} // namespace panewright
