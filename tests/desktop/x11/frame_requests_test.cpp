#include "desktop/x11/frame_requests.h"

#include <gtest/gtest.h>

#include <limits>

namespace panewright {
namespace {

TEST(FrameRequests, DropWhatXCannotExpress) {
    EXPECT_TRUE(isExpressible(Point{-32768, 32767}));
    EXPECT_TRUE(isExpressible(Size{0, 32767}));
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::infinity(), Limits::quiet_NaN(), 32768.0, -40000.0}) {
        EXPECT_FALSE(isExpressible(Point{value, 0})) << value;
        EXPECT_FALSE(isExpressible(Size{1, value})) << value;
    }
}

} // namespace
} // namespace panewright
