#include "geometry/next_display.h"

#include "desktop/memory/memory_displays.h"
#include "support/print_geometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace panewright {
namespace {

class NextDisplayTest : public testing::Test {
protected:
    void connect(const std::vector<Rect>& bounds) {
        std::vector<MemoryDisplays::Display> displays;
        displays.reserve(bounds.size());
        for (const auto& rect : bounds) {
            displays.push_back({.id = static_cast<DisplayId>(displays.size() + 1), .bounds = rect});
        }
        displays_.setDisplays(displays);
    }
    std::optional<QuartzDisplay> display(DisplayId id) { return QuartzDisplay(displays_, id); }
    DisplayId nextOf(const Rect& rect) {
        const auto next = getNextDisplayForWindowRect(displays_, rect);
        return next ? next->displayId() : kNoDisplay;
    }

    MemoryDisplays displays_;
};

TEST_F(NextDisplayTest, FollowsTheOrderOfScreensFromTheDisplayOfTheCorner) {
    connect({{0, 0, 1440, 900}, {1440, 0, 1920, 1080}, {3360, 0, 1440, 900}});
    const std::pair<Rect, DisplayId> cases[] = {
        {{100, 50, 800, 600}, 2}, {{1440, 0, 10, 10}, 3}, {{3400, 0, 10, 10}, 1},
        {{1439, 0, 1920, 10}, 2}, {{-5, -5, 10, 10}, 1},  {{100, 950, 10, 10}, 1},
    };
    for (const auto& [rect, next] : cases) {
        EXPECT_EQ(nextOf(rect), next) << rect.x;
    }
    connect({{0, 0, 1440, 900}});
    EXPECT_EQ(nextOf({100, 50, 800, 600}), kNoDisplay);
    connect({});
    EXPECT_EQ(nextOf({100, 50, 800, 600}), kNoDisplay);
}

TEST_F(NextDisplayTest, TakesAWindowBelowTheMenuBarForFullScreen) {
    connect({{-1440, 100, 1440, 900}});
    const std::pair<Rect, bool> cases[] = {
        {{-1440, 100, 1440, 900}, true},     {{-1440, 123, 1440, 877}, true},
        {{-1440, 123, 1440, 870}, true},     {{-1440, 123, 1440, 2000}, true},
        {{-1440, 123, 1440, 869.99}, false}, {{-1440, 122, 1440, 877}, false},
        {{-1440, 123, 1439, 877}, false},    {{-1440, 100, 1440, 899}, false},
    };
    for (const auto& [rect, isFull] : cases) {
        EXPECT_EQ(isRectFullscreen(rect, display(1)), isFull) << rect.height;
    }
    EXPECT_TRUE(isRectFullscreen({}, std::nullopt));
    EXPECT_TRUE(isRectFullscreen({0, 23, 0, 5}, std::nullopt));
}

TEST_F(NextDisplayTest, KeepsPlaceAndShareInThirtyTwoBitSteps) {
    const struct {
        const char* what;
        Rect from;
        Rect to;
        Rect window;
        Rect frame;
    } cases[] = {
        {"to a larger display",
         {0, 0, 1440, 900},
         {1440, 0, 1920, 1080},
         {100, 50, 800, 600},
         {1573.3333740234375, 60.000003814697266, 1066.666748046875, 720}},
        {"back again",
         {1440, 0, 1920, 1080},
         {0, 0, 1440, 900},
         {1573.3333740234375, 60.000003814697266, 1066.666748046875, 720},
         {100.00003051757812, 50.000003814697266, 800.0000610351562, 600.0}},
        {"a window that fills its display",
         {0, 0, 1440, 900},
         {1440, 0, 1920, 1080},
         {0, 23, 1440, 877},
         {1440, 0, 1920, 1080}},
        {"one just too short is scaled",
         {0, 0, 1000, 1000},
         {1000, 0, 2000, 2000},
         {0, 23, 1000, 900},
         {1000, 46, 2000, 1800}},
        {"a corner left of the display is mirrored into the next",
         {0, 0, 1000, 1000},
         {1000, 0, 1000, 1000},
         {-50, 0, 500, 500},
         {1050, 0, 500, 500}},
        {"a display across zero is taken literally",
         {-100, 0, 1000, 1000},
         {900, 0, 1000, 1000},
         {50, 0, 500, 500},
         {950, 0, 500, 500}},
    };
    for (const auto& [what, from, to, window, frame] : cases) {
        connect({from, to});
        EXPECT_EQ(frameOnNextDisplay(window, display(1), *display(2)), frame) << what;
    }
    EXPECT_FALSE(std::isfinite(frameOnNextDisplay({1, 1, 1, 1}, std::nullopt, *display(2)).width));
}

} // namespace
} // namespace panewright
