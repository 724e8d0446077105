#include "desktop/x11/position_request.h"

#include <xcb/xcb.h>

#include <cmath>

namespace panewright {
namespace {

constexpr double kLargestCoordinate = 32767;

bool isWithin(double value, double least, double most) {
    return std::isfinite(value) && value >= least && value <= most;
}

} // namespace

bool isExpressible(Point position) {
    return isWithin(position.x, -kLargestCoordinate - 1, kLargestCoordinate) &&
           isWithin(position.y, -kLargestCoordinate - 1, kLargestCoordinate);
}

bool isExpressible(Size size) {
    return isWithin(size.width, -kLargestCoordinate, kLargestCoordinate) &&
           isWithin(size.height, -kLargestCoordinate, kLargestCoordinate);
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

} // namespace panewright
