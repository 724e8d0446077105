// What is made of the numbers that clients write into their properties, and ours that X cannot
// take.

#include "desktop/linux/evdev_key_codes.h"
#include "desktop/x11/desktop_entry_icons.h"
#include "desktop/x11/evdev_native_key_codes.h"
#include "desktop/x11/position_request.h"
#include "desktop/x11/x11_work_areas.h"
#include "support/print_geometry.h"

#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

#include <limits>

namespace panewright {
namespace {

TEST(IconPictures, AreThoseThatAreWhole) {
    const IconPicture one{1, 1, {0xFF112233}}, two{2, 1, {0xFF000001, 0x80000002}};
    const struct {
        std::vector<std::uint32_t> property;
        std::vector<IconPicture> pictures;
    } cases[] = {
        {{}, {}},
        {{1, 1}, {}},
        {{1, 1, 0xFF112233}, {one}},
        {{1, 1, 0xFF112233, 2, 1, 0xFF000001, 0x80000002}, {one, two}},
        {{1, 1, 0xFF112233, 2, 1, 0xFF000001}, {one}},
        {{1, 1, 0xFF112233, 0, 5, 1, 1, 1}, {one}},
        {{0xFFFFFFFF, 0xFFFFFFFF, 1}, {}},
        {{0x10000, 0x10000, 1}, {}}, // no pixels in 32 bits
    };
    for (const auto& test : cases) {
        EXPECT_EQ(iconPictures(test.property), test.pictures);
    }
    std::vector<std::uint32_t> wide{1025, 1};
    wide.resize(2 + 1025);
    wide.insert(wide.end(), {1, 1, 0xFF112233});
    EXPECT_EQ(iconPictures(wide), std::vector{one});
    EXPECT_EQ(iconPictures(std::vector<std::uint32_t>(1000, 1)).size(), 16U);
}

TEST(FrameRequests, DropWhatXCannotExpress) {
    EXPECT_TRUE(isExpressible(Point{-32768, 32767}));
    EXPECT_TRUE(isExpressible(Size{0, 32767}));
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::infinity(), Limits::quiet_NaN(), 32768.0, -40000.0}) {
        EXPECT_FALSE(isExpressible(Point{value, 0})) << value;
        EXPECT_FALSE(isExpressible(Size{1, value})) << value;
    }
}

TEST(AreaWithoutStruts, TakesFromEachDisplayWhatLiesOnIt) {
    // Two beside each other, the right one lower and less high; on a screen of 3000 by 1200.
    const Rect left{0, 0, 1600, 900}, right{1600, 200, 1400, 1000};
    constexpr auto kEnd = 0xFFFFFFFFU;
    const struct {
        const char* name;
        std::vector<StrutPartial> struts;
        Rect left, right;
    } cases[] = {
        {"none", {}, left, right},
        {"top left", {{0, 0, 30, 0, 0, 0, 0, 0, 0, 1599, 0, 0}}, {0, 30, 1600, 870}, right},
        // 30 pixels of the right display; those above it are nobody's.
        {"top right", {{0, 0, 230, 0, 0, 0, 0, 0, 1600, 2999, 0, 0}}, left, {1600, 230, 1400, 970}},
        {"bottom left", {{0, 0, 0, 340, 0, 0, 0, 0, 0, 0, 0, 1599}}, {0, 0, 1600, 860}, right},
        {"right's left", {{1650, 0, 0, 0, 200, 1199}}, left, {1650, 200, 1350, 1000}},
        {"left's right", {{0, 1440, 0, 0, 0, 0, 0, 199}}, {0, 0, 1560, 900}, right},
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

TEST(EvdevKeyCodes, NameEachPhysicalKeyOnce) {
    EXPECT_THAT(evdevCodesOf(114), testing::ElementsAre(KEY_INSERT, KEY_HELP)); // keyboards differ
    for (std::uint16_t code = 0; code <= 128; ++code) {
        for (const auto evdevCode : evdevCodesOf(code)) {
            EXPECT_EQ(EvdevNativeKeyCodes().virtualKeyCode(evdevCode + 8, 0), code);
        }
    }
    for (const std::uint32_t code : {KEY_RESERVED, KEY_PAUSE, KEY_F21, KEY_PLAYPAUSE}) {
        EXPECT_EQ(virtualKeyCodeOf(code), std::nullopt) << code;
    }
    EXPECT_EQ(EvdevNativeKeyCodes().virtualKeyCode(7, 0), std::nullopt);
}

} // namespace
} // namespace panewright
