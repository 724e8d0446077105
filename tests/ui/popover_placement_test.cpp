#include "ui/popover_placement.h"

#include "support/print_geometry.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(PopoverPlacement, HangsFromItsAnchorInsideTheWorkArea) {
    constexpr Rect kBelow{0, 30, 1600, 870}; // a panel at the top
    constexpr Rect kAbove{0, 0, 1600, 870};
    constexpr Rect kSecond{1600, 200, 1000, 600};
    constexpr Rect kLow{0, 200, 1000, 210};
    constexpr Rect kTiny{0, 20, 200, 100};
    const struct {
        const char* what;
        Rect anchor;
        Rect area;
        Rect frame;
        bool isBelow;
        double arrowX;
    } cases[] = {
        {"centred", {800, 0, 24, 30}, kBelow, {662, 30, 300, 200}, true, 150},
        {"at the right edge", {1570, 0, 24, 30}, kBelow, {1292, 30, 300, 200}, true, 280},
        {"at the left edge", {0, 0, 24, 30}, kBelow, {8, 30, 300, 200}, true, 20},
        {"above a panel", {800, 870, 24, 30}, kAbove, {662, 670, 300, 200}, false, 150},
        {"below a corner", {1600, 30, 0, 0}, kBelow, {1292, 30, 300, 200}, true, 280},
        {"on half a point", {800.5, 0, 24, 30}, kBelow, {663, 30, 300, 200}, true, 150},
        {"on another display", {2590, 170, 20, 30}, kSecond, {2292, 200, 300, 200}, true, 280},
        {"too high", {10, 290, 20, 20}, kLow, {8, 210, 300, 200}, true, 20},
        {"too large", {50, 0, 20, 20}, kTiny, {8, 20, 300, 200}, true, 52},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        const auto placed = placePopover({{300, 200}, 20, 8}, {each.anchor, each.area});
        EXPECT_EQ(placed.frame, each.frame);
        EXPECT_EQ(placed.isBelow, each.isBelow);
        EXPECT_EQ(placed.arrowX, each.arrowX);
    }
}

} // namespace
} // namespace panewright
