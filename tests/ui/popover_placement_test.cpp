#include "ui/popover_placement.h"

#include "support/print_geometry.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(PopoverPlacement, HangsFromItsAnchorInsideTheWorkArea) {
    constexpr Rect kBelow{0, 30, 1600, 870}; // a panel at the top
    constexpr Rect kAbove{0, 0, 1600, 870};
    constexpr Rect kSecond{1600, 200, 1000, 600}, kLow{0, 200, 1000, 210};
    constexpr Rect kRightOf{30, 0, 1570, 900}; // a panel at the left
    constexpr Rect kLeftOf{0, 0, 1570, 900};
    constexpr Rect kTiny{0, 20, 200, 100};
    constexpr auto kDown = AnchorSide::kBelow;
    constexpr Size kSize{300, 200};
    const struct {
        const char* what;
        Rect anchor, area;
        Point origin;
        AnchorSide side;
        double arrow;
    } cases[] = {
        {"centred", {800, 0, 24, 30}, kBelow, {662, 30}, kDown, 150},
        {"at the right edge", {1570, 0, 24, 30}, kBelow, {1292, 30}, kDown, 280},
        {"at the left edge", {0, 0, 24, 30}, kBelow, {8, 30}, kDown, 20},
        {"above a panel", {800, 870, 24, 30}, kAbove, {662, 670}, AnchorSide::kAbove, 150},
        {"below a corner", {1600, 30, 0, 0}, kBelow, {1292, 30}, kDown, 280},
        {"on half a point", {800.5, 0, 24, 30}, kBelow, {663, 30}, kDown, 150},
        {"on another display", {2590, 170, 20, 30}, kSecond, {2292, 200}, kDown, 280},
        {"too high", {10, 290, 20, 20}, kLow, {8, 210}, kDown, 20},
        {"beside a panel", {0, 500, 30, 24}, kRightOf, {30, 412}, AnchorSide::kRightOf, 100},
        {"in a panel", {1590, 890, 0, 0}, kLeftOf, {1270, 692}, AnchorSide::kLeftOf, 180},
        {"too large", {50, 0, 20, 20}, kTiny, {8, 20}, kDown, 52},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        const auto placed = placePopover({kSize, 20, 8}, {each.anchor, each.area});
        EXPECT_EQ(placed.frame, makeRect(each.origin, kSize));
        EXPECT_EQ(placed.side, each.side);
        EXPECT_EQ(placed.arrow, each.arrow);
    }
}

TEST(MenuPlacement, BeginsWhereItsAnchorBeginsAndCoversNoPanel) {
    constexpr Size kMenu{200, 300};
    const std::pair<PopoverAnchor, Rect> cases[] = {
        {{{800, 0, 24, 30}, {0, 30, 1600, 870}}, {800, 30, 200, 300}},
        {{{1590, 12, 0, 0}, {0, 30, 1600, 870}}, {1400, 30, 200, 300}},
        {{{1590, 885, 0, 0}, {0, 0, 1600, 870}}, {1400, 570, 200, 300}},
        {{{4, 700, 24, 24}, {30, 0, 1570, 900}}, {30, 600, 200, 300}},
        {{{1585, 450, 0, 0}, {0, 0, 1570, 900}}, {1370, 450, 200, 300}},
    };
    for (const auto& [anchor, frame] : cases) {
        EXPECT_EQ(placeMenu(kMenu, anchor), frame);
    }
}

} // namespace
} // namespace panewright
