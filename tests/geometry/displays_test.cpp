#include "desktop/memory/memory_displays.h"
#include "geometry/full_screen.h"
#include "geometry/next_display.h"
#include "support/print_geometry.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using testing::SizeIs;

class DisplaysTest : public testing::Test {
protected:
    /// With ids from 1 on.
    void connect(const std::vector<Rect>& bounds) {
        DisplaySnapshot displays;
        displays.reserve(bounds.size());
        for (const auto& rect : bounds) {
            displays.push_back({.id = static_cast<DisplayId>(displays.size() + 1), .bounds = rect});
        }
        displays_.setDisplays(displays);
    }
    QuartzDisplay display(DisplayId id) { return QuartzDisplay(displays_, id); }
    static DisplayId idOf(const std::optional<QuartzDisplay>& display) {
        return display ? display->displayId() : kNoDisplay;
    }

    MemoryDisplays displays_;
};

TEST_F(DisplaysTest, AreFortyEightHoweverFewThereAreAndFollowTheDesktop) {
    displays_.setDisplays(
        {{.id = 3, .mirrored = 5, .bounds = {0, 0, 800, 600}},
         {.id = 5, .bounds = {0, 0, 800, 600}, .vendorNumber = 1552, .unitNumber = 1}});
    const auto all = QuartzDisplay::displays(displays_);
    ASSERT_THAT(all, SizeIs(48));
    EXPECT_EQ(all[1].displayId(), 5U);
    EXPECT_EQ(all[47].displayId(), kNoDisplay);
    EXPECT_EQ(QuartzDisplay::numberOfDisplays(displays_), 2U);
    EXPECT_THAT(QuartzDisplay::screens(displays_), SizeIs(1));
    EXPECT_EQ(idOf(QuartzDisplay::withPoint(displays_, {1, 1})), 5U) << "the mirrored one";
    EXPECT_EQ(display(5).serialAndVendorAndUnit(), "0_1552_1");
    const QuartzDisplay followed = display(5);
    EXPECT_TRUE(followed.isEqualToDisplay(display(5)));
    EXPECT_FALSE(followed.isEqualToDisplay(display(3)) || followed.isEqualToDisplay(std::nullopt));
    displays_.setDisplays({{.id = 5, .bounds = {10, 20, 640, 480}}});
    EXPECT_EQ(followed.bounds(), (Rect{10, 20, 640, 480}));
    displays_.setDisplays({});
    EXPECT_EQ(followed.bounds(), Rect{});
    EXPECT_FALSE(followed.screen());
}

TEST_F(DisplaysTest, AreFoundByRectangleAndFollowEachOtherFromThatOfItsCorner) {
    connect({{0, 0, 1440, 900}, {1440, 0, 1920, 1080}, {3360, 0, 1440, 900}});
    const struct {
        Rect rect;
        DisplayId holds, next;
    } cases[] = {
        {{100, 50, 800, 600}, 1, 2}, {{1440, 0, 10, 10}, 2, 3},
        {{3400, 0, 10, 10}, 3, 1},   {{1439, 0, 1920, 10}, 1, 2}, // most of it on the other
        {{-5, -5, 10, 10}, 1, 1},    {{100, 950, 10, 10}, kNoDisplay, 1},
    };
    for (const auto& [rect, holds, next] : cases) {
        EXPECT_EQ(idOf(QuartzDisplay::withRect(displays_, rect)), holds) << rect.x;
        EXPECT_EQ(idOf(getNextDisplayForWindowRect(displays_, rect)), next) << rect.x;
    }
    connect({{0, 0, 1440, 900}});
    EXPECT_EQ(getNextDisplayForWindowRect(displays_, {100, 50, 800, 600}), std::nullopt);
}

TEST_F(DisplaysTest, AreFilledByAWindowBelowTheMenuBarToo) {
    connect({{-1440, 100, 1440, 900}});
    const std::pair<Rect, bool> cases[] = {
        {{-1440, 100, 1440, 900}, true},  {{-1440, 123, 1440, 870}, true},
        {{-1440, 123, 1440, 2000}, true}, {{-1440, 123, 1440, 869.99}, false},
        {{-1440, 122, 1440, 877}, false}, {{-1440, 123, 1439, 877}, false},
        {{-1440, 100, 1440, 899}, false},
    };
    for (const auto& [rect, isFull] : cases) {
        EXPECT_EQ(isRectFullscreen(rect, display(1)), isFull) << rect.height;
    }
    EXPECT_TRUE(isRectFullscreen({0, 23, 0, 5}, std::nullopt));
}

TEST_F(DisplaysTest, LetAWindowKeepItsPlaceAndShareInThirtyTwoBitSteps) {
    constexpr Rect kSmall{0, 0, 1440, 900}, kLarge{1440, 0, 1920, 1080};
    constexpr Rect kScaled{1573.3333740234375, 60.000003814697266, 1066.666748046875, 720};
    constexpr Rect kSquare{0, 0, 1000, 1000}, kNextSquare{1000, 0, 1000, 1000};
    const struct {
        const char* what;
        Rect from, to, window, frame;
    } cases[] = {
        {"to a larger display", kSmall, kLarge, {100, 50, 800, 600}, kScaled},
        {"a window that fills its display", kSmall, kLarge, {0, 23, 1440, 877}, kLarge},
        {"too short for that", kSquare, kNextSquare, {0, 23, 1000, 900}, {1000, 23, 1000, 900}},
        {"left of it, mirrored", kSquare, kNextSquare, {-50, 0, 500, 500}, {1050, 0, 500, 500}},
        {"across zero", {-100, 0, 1000, 1000}, {900, 0, 1000, 1000}, {50, 0, 9, 9}, {950, 0, 9, 9}},
    };
    for (const auto& [what, from, to, window, frame] : cases) {
        connect({from, to});
        EXPECT_EQ(frameOnNextDisplay(window, display(1), display(2)), frame) << what;
    }
}

} // namespace
} // namespace panewright
