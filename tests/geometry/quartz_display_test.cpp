#include "geometry/quartz_display.h"

#include "desktop/memory/memory_displays.h"
#include "support/print_geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using testing::MatchesRegex;
using testing::SizeIs;

class QuartzDisplayTest : public testing::Test {
protected:
    QuartzDisplayTest() {
        displays_.setDisplays({{.id = 7, .bounds = {0, 0, 1440, 900}, .vendor = 1552, .unit = 1},
                               {.id = 9, .bounds = {1440, 0, 1920, 1080}, .serial = 4294967295}});
    }

    static DisplayId idOf(const std::optional<QuartzDisplay>& display) {
        return display ? display->displayId() : kNoDisplay;
    }

    MemoryDisplays displays_;
};

TEST_F(QuartzDisplayTest, ListsFortyEightDisplaysHoweverFewThereAre) {
    const auto all = QuartzDisplay::displays(displays_);
    ASSERT_THAT(all, SizeIs(48));
    EXPECT_EQ(all[0].displayId(), 7U);
    EXPECT_EQ(all[1].displayId(), 9U);
    for (std::size_t i = 2; i < all.size(); ++i) {
        EXPECT_EQ(all[i].displayId(), kNoDisplay);
        EXPECT_EQ(all[i].bounds(), Rect{});
    }
    EXPECT_EQ(QuartzDisplay::numberOfDisplays(displays_), 2U);
    EXPECT_THAT(QuartzDisplay::screens(displays_), SizeIs(2));
}

TEST_F(QuartzDisplayTest, FindsTheDisplayOfAPointOrARectangle) {
    const struct {
        Point point;
        DisplayId found;
    } points[] = {{{0, 0}, 7}, {{1439.9, 899}, 7}, {{1440, 0}, 9}, {{0, 900}, 0}, {{-1, 0}, 0}};
    for (const auto& [point, found] : points) {
        EXPECT_EQ(idOf(QuartzDisplay::withPoint(displays_, point)), found) << point.x;
    }
    const struct {
        Rect rect;
        DisplayId found;
    } rects[] = {
        {{100, 50, 800, 600}, 7}, {{1400, 0, 1900, 900}, 7}, // most of it on the other
        {{1440, 0, 10, 10}, 9},   {{-500, -500, 500, 500}, 0}, {{100, 100, 0, 0}, 0},
    };
    for (const auto& [rect, found] : rects) {
        EXPECT_EQ(idOf(QuartzDisplay::withRect(displays_, rect)), found) << rect.x;
    }
}

TEST_F(QuartzDisplayTest, AnswersWithTheOneThatIsMirrored) {
    displays_.setDisplays({{.id = 3, .bounds = {0, 0, 800, 600}, .mirrorOf = 5},
                           {.id = 5, .bounds = {0, 0, 800, 600}}});
    EXPECT_EQ(idOf(QuartzDisplay::withPoint(displays_, {1, 1})), 5U);
    EXPECT_THAT(QuartzDisplay::screens(displays_), SizeIs(1));
}

TEST_F(QuartzDisplayTest, FollowsWhatBecomesOfItsDisplay) {
    const QuartzDisplay display(displays_, 7);
    ASSERT_TRUE(display.screen());
    displays_.setDisplays({{.id = 7, .bounds = {10, 20, 640, 480}}});
    EXPECT_EQ(display.bounds(), (Rect{10, 20, 640, 480}));
    EXPECT_EQ(display.pixelSize(), (Size{640, 480}));
    displays_.setDisplays({});
    EXPECT_EQ(display.bounds(), Rect{});
    EXPECT_FALSE(display.screen());
}

TEST_F(QuartzDisplayTest, NamesTheHardware) {
    EXPECT_EQ(QuartzDisplay(displays_, 7).serialAndVendorAndUnit(), "0_1552_1");
    EXPECT_EQ(QuartzDisplay(displays_, 9).serialNumber(), "4294967295");
    EXPECT_THAT(QuartzDisplay(displays_, 9).description(),
                MatchesRegex("<QuartzDisplay:0x[0-9a-f]+> \\(displayId:9, x:1440.000000, "
                             "y:0.000000, width:1920.000000px, height:1080.000000px\\)"));
}

TEST_F(QuartzDisplayTest, EqualsAnotherObjectOfTheSameDisplay) {
    const QuartzDisplay display(displays_, 7);
    EXPECT_TRUE(display.isEqualToDisplay(QuartzDisplay(displays_, 7)));
    EXPECT_FALSE(display.isEqualToDisplay(QuartzDisplay(displays_, 9)));
    EXPECT_FALSE(display.isEqualToDisplay(std::nullopt));
    EXPECT_TRUE(QuartzDisplay(displays_, 0).isEqualToDisplay(std::nullopt));
}

} // namespace
} // namespace panewright
