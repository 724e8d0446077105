#include "desktop/linux/frame_requests.h"

#include "support/print_geometry.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <limits>

namespace panewright {
namespace {

TEST(FrameRequests, RoundAPositionUpAndASizeToTheNearest) {
    const std::pair<Point, Point> positions[] = {
        {{100, 50}, {100, 50}},
        {{68.3, 38.4}, {69, 39}},
        {{157.5, -0.5}, {158, 0}},
        {{-10.25, 1573.33337}, {-10, 1574}},
        {{100.0019, 100.002}, {100, 101}}, // noise of 32-bit steps, and just more than that
    };
    for (const auto& [written, rounded] : positions) {
        EXPECT_EQ(roundedPosition(written), rounded);
    }
    const std::pair<Size, Size> sizes[] = {{{1229.4, 691.2}, {1229, 691}},
                                           {{0.5, 0.4}, {1, 1}},
                                           {{-5, 0}, {1, 1}},
                                           {{99.5, 10}, {100, 10}}};
    for (const auto& [written, rounded] : sizes) {
        EXPECT_EQ(roundedSize(written), rounded);
    }
}

TEST(FrameRequests, DropWhatXCannotExpress) {
    const double infinite = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(isExpressible(Point{-32768, 32767}));
    EXPECT_TRUE(isExpressible(Size{0, 32767}));
    for (const double value : {infinite, -infinite, none, 32768.0, -40000.0}) {
        EXPECT_FALSE(isExpressible(Point{value, 0})) << value;
        EXPECT_FALSE(isExpressible(Size{1, value})) << value;
    }
}

TEST(FrameRequests, NameTheWindowsOwnGravityAndItsReferencePoint) {
    const Rect client{101, 220, 300, 200};
    const Extents decoration{1, 2, 20, 5};
    const struct {
        std::uint32_t gravity;
        PositionRequest request;
    } cases[] = {
        {XCB_GRAVITY_NORTH_WEST, {XCB_GRAVITY_NORTH_WEST, 100, 200}},
        {XCB_GRAVITY_NORTH_EAST, {XCB_GRAVITY_NORTH_EAST, 103, 200}},
        {XCB_GRAVITY_SOUTH_WEST, {XCB_GRAVITY_SOUTH_WEST, 100, 225}},
        {XCB_GRAVITY_SOUTH_EAST, {XCB_GRAVITY_SOUTH_EAST, 103, 225}},
        {XCB_GRAVITY_STATIC, {XCB_GRAVITY_STATIC, 101, 220}},
        {XCB_GRAVITY_CENTER, {XCB_GRAVITY_STATIC, 101, 220}},
        {XCB_GRAVITY_NORTH, {XCB_GRAVITY_STATIC, 101, 220}},
    };
    for (const auto& [gravity, request] : cases) {
        EXPECT_EQ(positionRequest(client, decoration, gravity, true), request) << gravity;
    }
    EXPECT_EQ(positionRequest(client, decoration, XCB_GRAVITY_NORTH_WEST, false),
              (PositionRequest{XCB_GRAVITY_STATIC, 101, 220}));
}

TEST(FrameRequests, ReportWhatWasWrittenWhileTheWindowStandsNearIt) {
    const Rect written{69, 39, 1229.4, 691.2};
    const Rect settled{69, 39, 1229, 691};
    EXPECT_EQ(frameToReport(settled, std::nullopt), settled);
    EXPECT_EQ(frameToReport(settled, SettledFrame{written, settled}), written);
    const Rect moved{70, 39, 1229, 691};
    EXPECT_EQ(frameToReport(moved, SettledFrame{written, settled}), moved);
    // A panel of 64 px pushes a window down and is forgiven, one of 65 px is not.
    const Rect full{0, 0, 1600, 900};
    EXPECT_EQ(frameToReport({0, 64, 1600, 836}, SettledFrame{full, {0, 64, 1600, 836}}), full);
    EXPECT_EQ(frameToReport({0, 65, 1600, 835}, SettledFrame{full, {0, 65, 1600, 835}}),
              (Rect{0, 65, 1600, 835}));
}

} // namespace
} // namespace panewright
