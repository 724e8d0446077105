#include "geometry/quartz_display.h"

#include <fmt/format.h>

#include <algorithm>

namespace panewright {
namespace {

std::optional<QuartzDisplay> onlyOrPrimaryOfFirst(const Displays& port,
                                                  const std::vector<DisplayId>& found) {
    if (found.empty()) {
        return std::nullopt;
    }
    return QuartzDisplay(port,
                         found.size() == 1 ? found.front() : port.primaryDisplay(found.front()));
}

} // namespace

std::optional<QuartzDisplay> QuartzDisplay::withPoint(const Displays& port, Point point) {
    return onlyOrPrimaryOfFirst(port, port.displaysWithPoint(point, kMaxDisplays));
}

std::optional<QuartzDisplay> QuartzDisplay::withRect(const Displays& port, const Rect& rect) {
    return onlyOrPrimaryOfFirst(port, port.displaysWithRect(rect, kMaxDisplays));
}

std::size_t QuartzDisplay::numberOfDisplays(const Displays& port) {
    return port.activeDisplays(kMaxDisplays).size();
}

std::vector<QuartzDisplay> QuartzDisplay::displays(const Displays& port) {
    auto ids = port.activeDisplays(kMaxDisplays);
    ids.resize(kMaxDisplays, kNoDisplay);
    std::vector<QuartzDisplay> displays;
    displays.reserve(ids.size());
    for (const auto id : ids) {
        displays.emplace_back(port, id);
    }
    return displays;
}

std::vector<QuartzDisplay> QuartzDisplay::screens(const Displays& port) {
    std::vector<QuartzDisplay> displays;
    for (const auto& screen : port.screens()) {
        displays.emplace_back(port, static_cast<DisplayId>(screen.screenNumber));
    }
    return displays;
}

std::optional<Screen> QuartzDisplay::screen() const {
    const auto screens = port_->screens();
    const auto found = std::find_if(screens.begin(), screens.end(), [this](const Screen& screen) {
        return static_cast<DisplayId>(screen.screenNumber) == displayId_;
    });
    return found == screens.end() ? std::nullopt : std::optional(*found);
}

std::string QuartzDisplay::serialNumber() const {
    return fmt::format("{}", port_->serialNumber(displayId_));
}

std::string QuartzDisplay::vendorNumber() const {
    return fmt::format("{}", port_->vendorNumber(displayId_));
}

std::string QuartzDisplay::unitNumber() const {
    return fmt::format("{}", port_->unitNumber(displayId_));
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
