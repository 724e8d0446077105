#include "geometry/quartz_display.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace panewright {
namespace {

/// The first display that it holds for; if more follow, the one that the first mirrors.
template <class Predicate>
std::optional<QuartzDisplay> onlyOrPrimaryOfFirst(const Displays& port, Predicate predicate) {
    const auto& all = port.snapshot();
    const auto first = std::find_if(all.begin(), all.end(), predicate);
    if (first == all.end()) {
        return std::nullopt;
    }
    const bool isOnly = std::none_of(std::next(first), all.end(), predicate);
    return QuartzDisplay(port, isOnly ? first->id : first->mirrored);
}

bool isScreen(const Display& display) {
    return display.mirrored == display.id;
}

} // namespace

std::optional<QuartzDisplay> QuartzDisplay::withPoint(const Displays& port, Point point) {
    return onlyOrPrimaryOfFirst(
        port, [&](const Display& display) { return contains(display.bounds, point); });
}

std::optional<QuartzDisplay> QuartzDisplay::withRect(const Displays& port, const Rect& rect) {
    return onlyOrPrimaryOfFirst(
        port, [&](const Display& display) { return intersects(display.bounds, rect); });
}

std::size_t QuartzDisplay::numberOfDisplays(const Displays& port) {
    return std::min(port.snapshot().size(), kMaxDisplays);
}

std::vector<QuartzDisplay> QuartzDisplay::displays(const Displays& port) {
    std::vector<QuartzDisplay> displays(kMaxDisplays, QuartzDisplay(port, kNoDisplay));
    const auto& all = port.snapshot();
    for (std::size_t i = 0; i < numberOfDisplays(port); ++i) {
        displays[i].setDisplayId(all[i].id);
    }
    return displays;
}

std::vector<QuartzDisplay> QuartzDisplay::screens(const Displays& port) {
    std::vector<QuartzDisplay> displays;
    for (const auto& display : port.snapshot()) {
        if (isScreen(display)) {
            displays.emplace_back(port, display.id);
        }
    }
    return displays;
}

std::optional<Screen> QuartzDisplay::screen() const {
    const auto display = displayNow();
    return display.id != kNoDisplay && isScreen(display)
               ? std::optional(Screen{display.id, display.name})
               : std::nullopt;
}

std::string QuartzDisplay::serialNumber() const {
    return fmt::format("{}", displayNow().serialNumber);
}

std::string QuartzDisplay::vendorNumber() const {
    return fmt::format("{}", displayNow().vendorNumber);
}

std::string QuartzDisplay::unitNumber() const {
    return fmt::format("{}", displayNow().unitNumber);
}

std::string QuartzDisplay::serialAndVendorAndUnit() const {
    return fmt::format("{}_{}_{}", serialNumber(), vendorNumber(), unitNumber());
}

bool QuartzDisplay::isEqualToDisplay(const std::optional<QuartzDisplay>& other) const {
    return displayId_ == (other ? other->displayId_ : kNoDisplay);
}

std::string QuartzDisplay::description() const {
    const auto origin = bounds().origin();
    const auto pixels = pixelSize();
    return fmt::format("<QuartzDisplay:{}> (displayId:{}, x:{:.6f}, y:{:.6f}, width:{:.6f}px, "
                       "height:{:.6f}px)",
                       fmt::ptr(this), displayId_, origin.x, origin.y, pixels.width, pixels.height);
}

Rect boundsOf(const std::optional<QuartzDisplay>& display) {
    return display ? display->bounds() : Rect{};
}

Size pixelSizeOf(const std::optional<QuartzDisplay>& display) {
    return display ? display->pixelSize() : Size{};
}

} // namespace panewright
