#include "desktop/x11/frame_requests.h"

#include "support/print_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace panewright {
namespace {

TEST(FrameRequests, RoundAPositionUpAndASizeToTheNearestAndDropWhatXCannotExpress) {
    const std::pair<Point, Point> positions[] = {
        {{68.3, 38.4}, {69, 39}},
        {{157.5, -0.5}, {158, 0}},
        {{-10.25, 1573.33337}, {-10, 1574}},
        {{100.0019, 100.002}, {100, 101}}, // noise of 32-bit steps, and just more than that
    };
    for (const auto& [written, rounded] : positions) {
        EXPECT_EQ(roundedPosition(written), rounded);
    }
    const std::pair<Size, Size> sizes[] = {
        {{1229.4, 691.2}, {1229, 691}}, {{0.5, 0.4}, {1, 1}}, {{-5, 99.5}, {1, 100}}};
    for (const auto& [written, rounded] : sizes) {
        EXPECT_EQ(roundedSize(written), rounded);
    }
    EXPECT_TRUE(isExpressible(Point{-32768, 32767}));
    EXPECT_TRUE(isExpressible(Size{0, 32767}));
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::infinity(), Limits::quiet_NaN(), 32768.0, -40000.0}) {
        EXPECT_FALSE(isExpressible(Point{value, 0})) << value;
        EXPECT_FALSE(isExpressible(Size{1, value})) << value;
    }
}

TEST(FrameRequests, ReportWhatWasWrittenWhileTheWindowStandsNearIt) {
    const SettledFrame settled{{69, 39, 1229.4, 691.2}, {69, 39, 1229, 691}};
    const Rect moved{70, 39, 1229, 691};
    EXPECT_EQ(frameToReport(settled.settled, settled), settled.written);
    EXPECT_EQ(frameToReport(moved, settled), moved);
    EXPECT_EQ(frameToReport(moved, std::nullopt), moved);
    // A panel of 64 px pushes a window down and is forgiven, one of 65 px is not.
    const Rect full{0, 0, 1600, 900};
    const Rect pushed{0, 64, 1600, 836};
    const Rect pushedFar{0, 65, 1600, 835};
    EXPECT_EQ(frameToReport(pushed, SettledFrame{full, pushed}), full);
    EXPECT_EQ(frameToReport(pushedFar, SettledFrame{full, pushedFar}), pushedFar);
}

} // namespace
} // namespace panewright
