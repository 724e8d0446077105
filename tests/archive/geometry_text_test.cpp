#include "archive/geometry_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace panewright {
namespace {

TEST(GeometryText, WritesNestedPairsWithTheShortestNumbers) {
    EXPECT_EQ(NSStringFromRect({100, 50, 800, 600}), "{{100, 50}, {800, 600}}");
    EXPECT_EQ(NSStringFromRect({-0.1, 68.3, 1066.6666666666667, 1e21}),
              "{{-0.1, 68.3}, {1066.6666666666667, 1e+21}}");
    EXPECT_EQ(NSStringFromSize({0.65, 1}), "{0.65, 1}");
}

TEST(GeometryText, ReadsBackEveryDoubleExactly) {
    const Rect rect{1.0 / 3, -std::numeric_limits<double>::denorm_min(), 1e308, 0.1 + 0.2};
    EXPECT_EQ(NSRectFromString(NSStringFromRect(rect)), rect);
}

TEST(GeometryText, ReadsOtherWritersSpacing) {
    EXPECT_EQ(NSRectFromString("{{100,50},{800,600}}"), (Rect{100, 50, 800, 600}));
    EXPECT_EQ(NSSizeFromString(" { 0.9 , 0.8 } "), (Size{0.9, 0.8}));
}

TEST(GeometryText, ReadsAnythingElseAsZero) {
    for (const char* text : {"", "{", "{{1, 2}, {3, 4}", "{1, 2}", "{{1, 2}, {3, x}}",
                             "{{1, 2}, {3, 4}} 5", "{{1; 2}, {3, 4}}"}) {
        EXPECT_EQ(NSRectFromString(text), Rect{}) << text;
    }
}

} // namespace
} // namespace panewright
