#include "desktop/x11/x11_work_areas.h"

#include "support/print_geometry.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(AreaWithoutStruts, TakesFromEachDisplayWhatLiesOnIt) {
    // Two beside each other, the right one lower and less high; on a screen of 3000 by 1200.
    const Rect left{0, 0, 1600, 900};
    const Rect right{1600, 200, 1400, 1000};
    constexpr auto kEnd = 0xFFFFFFFFU;
    const struct {
        const char* name;
        std::vector<StrutPartial> struts;
        Rect left;
        Rect right;
    } cases[] = {
        {"none", {}, left, right},
        {"top left", {{0, 0, 30, 0, 0, 0, 0, 0, 0, 1599, 0, 0}}, {0, 30, 1600, 870}, right},
        // 30 pixels of the right display; those above it are nobody's.
        {"top right", {{0, 0, 230, 0, 0, 0, 0, 0, 1600, 2999, 0, 0}}, left, {1600, 230, 1400, 970}},
        {"bottom left", {{0, 0, 0, 340, 0, 0, 0, 0, 0, 0, 0, 1599}}, {0, 0, 1600, 860}, right},
        {"left edge of the right",
         {{1650, 0, 0, 0, 200, 1199, 0, 0, 0, 0, 0, 0}},
         left,
         {1650, 200, 1350, 1000}},
        {"right edge of the left",
         {{0, 1440, 0, 0, 0, 0, 0, 199, 0, 0, 0, 0}},
         {0, 0, 1560, 900},
         right},
        {"whole edges, the widest counting",
         {{0, 0, 240, 0, 0, kEnd, 0, kEnd, 0, kEnd, 0, kEnd},
          {0, 60, 210, 320, 0, kEnd, 0, kEnd, 0, kEnd, 0, kEnd}},
         {0, 240, 1600, 640},
         {1600, 240, 1340, 640}},
        {"all of a display", {{0, 0, 900, 0, 0, 0, 0, 0, 0, 1599, 0, 0}}, left, right},
        {"nonsense", {{kEnd, kEnd, kEnd, kEnd, kEnd, 0, 0, kEnd, 0, kEnd, 0, kEnd}}, left, right},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        EXPECT_EQ(areaWithoutStruts(left, {3000, 1200}, test.struts), test.left);
        EXPECT_EQ(areaWithoutStruts(right, {3000, 1200}, test.struts), test.right);
    }
}

} // namespace
} // namespace panewright
