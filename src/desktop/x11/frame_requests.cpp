#include "desktop/x11/frame_requests.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cmath>

namespace panewright {
namespace {

constexpr double kNoise = 1.0 / 512;
constexpr double kLargestCoordinate = 32767;
constexpr double kTrustedDistance = 64;

double roundedUp(double coordinate) {
    const double below = std::floor(coordinate);
    return coordinate - below < kNoise ? below : below + 1;
}

bool isWithin(double value, double least, double most) {
    return std::isfinite(value) && value >= least && value <= most;
}

bool isNear(const Rect& a, const Rect& b) {
    const auto near = [](double first, double second) {
        return std::abs(first - second) <= kTrustedDistance;
    };
    return near(a.x, b.x) && near(a.y, b.y) && near(a.x + a.width, b.x + b.width) &&
           near(a.y + a.height, b.y + b.height);
}

bool covers(const Rect& outer, const Rect& inner) {
    return outer.x <= inner.x && outer.y <= inner.y &&
           outer.x + outer.width >= inner.x + inner.width &&
           outer.y + outer.height >= inner.y + inner.height;
}

} // namespace

Point roundedPosition(Point position) {
    return {roundedUp(position.x), roundedUp(position.y)};
}

Size roundedSize(Size size) {
    return {std::max(1.0, std::round(size.width)), std::max(1.0, std::round(size.height))};
}

bool isExpressible(Point position) {
    return isWithin(position.x, -kLargestCoordinate - 1, kLargestCoordinate) &&
           isWithin(position.y, -kLargestCoordinate - 1, kLargestCoordinate);
}

bool isExpressible(Size size) {
    return isWithin(size.width, -kLargestCoordinate, kLargestCoordinate) &&
           isWithin(size.height, -kLargestCoordinate, kLargestCoordinate);
}

Rect frameToAsk(const Rect& written, const std::vector<DisplayArea>& displays) {
    const auto covered = std::ranges::find_if(displays, [&](const DisplayArea& display) {
        return display.workArea != display.bounds && covers(written, display.bounds);
    });
    if (covered == displays.end()) {
        return written;
    }
    const bool reachesOther = std::ranges::any_of(displays, [&](const DisplayArea& display) {
        return display.bounds != covered->bounds && intersects(written, display.bounds);
    });
    return reachesOther ? written : covered->workArea;
}

PositionRequest positionRequest(const Rect& client, const Extents& decoration,
                                std::uint32_t gravity, bool managerTells) {
    const Rect frame = grownBy(client, decoration);
    const double eastX = frame.x + frame.width - client.width;
    const double southY = frame.y + frame.height - client.height;
    const auto request = [](std::uint32_t named, double x, double y) {
        return PositionRequest{named, static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)};
    };
    if (!managerTells) {
        return request(XCB_GRAVITY_STATIC, client.x, client.y);
    }
    switch (gravity) {
    case XCB_GRAVITY_NORTH_WEST:
        return request(gravity, frame.x, frame.y);
    case XCB_GRAVITY_NORTH_EAST:
        return request(gravity, eastX, frame.y);
    case XCB_GRAVITY_SOUTH_WEST:
        return request(gravity, frame.x, southY);
    case XCB_GRAVITY_SOUTH_EAST:
        return request(gravity, eastX, southY);
    default:
        return request(XCB_GRAVITY_STATIC, client.x, client.y);
    }
}

Rect frameToReport(const Rect& trueFrame, const std::optional<SettledFrame>& memory) {
    const bool stands = memory && memory->settled == trueFrame;
    return stands && isNear(memory->settled, memory->asked) ? memory->written : trueFrame;
}

} // namespace panewright
