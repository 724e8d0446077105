#include "contract/x11_rig.h"
#include "desktop/linux/edid.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

TEST(Edid, GivesTheIdentityOfTheHardware) {
    std::vector<std::uint8_t> block{0,    0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0,
                                    0x10, 0xAC, 0x64, 0xA0, 0x4C, 0x37, 0x30, 0x31};
    EXPECT_FALSE(parseEdid({}));
    EXPECT_FALSE(parseEdid(block)); // too short
    for (const std::size_t size : {128U, 256U}) {
        block.resize(size);
        EXPECT_EQ(parseEdid(block), (EdidIdentity{0x10AC, 0xA064, 0x3130374C}));
    }
    block[0] = 1;
    EXPECT_FALSE(parseEdid(block));
}

class RandrDisplaysTest : public testing::Test {
protected:
    void xrandr(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "xrandr");
        rig_.desktop.run(arguments);
        rig_.loop.runPending();
    }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& display : displays_.snapshot()) {
            names.push_back(display.name);
        }
        return names;
    }

    X11Rig rig_;
    RandrDisplays& displays_ = rig_.ports->displays;
};

TEST_F(RandrDisplaysTest, TellOnceOfABurstOfChanges) {
    int changes = 0;
    const auto registration = displays_.onChange([&] { ++changes; });
    xrandr({"--setmonitor", "A", "800/200x900/200+0+0", "screen"});
    rig_.loop.advance(150ms);
    xrandr({"--setmonitor", "B", "800/200x900/200+800+0", "none"});
    rig_.loop.advance(150ms);
    EXPECT_EQ(changes, 0);
    EXPECT_THAT(names(), ElementsAre("A", "B")); // who asks gets to know at once
    rig_.loop.advance(100ms);
    EXPECT_EQ(changes, 1);

    xrandr({"--setmonitor", "C", "10/1x10/1+0+0", "none"});
    xrandr({"--delmonitor", "C"});
    rig_.loop.advance(300ms);
    EXPECT_EQ(changes, 1); // nothing has become of it
}

TEST_F(RandrDisplaysTest, PutThePrimaryFirstElseTheOneAtTheOriginAndKeepTheLastOnes) {
    xrandr({"--setmonitor", "Z", "800/200x900/200+0+0", "screen"});
    xrandr({"--setmonitor", "A", "800/200x900/200+800+0", "none"});
    EXPECT_THAT(names(), ElementsAre("Z", "A"));
    xrandr({"--delmonitor", "A"});
    xrandr({"--setmonitor", "*A", "800/200x900/200+800+0", "none"});
    EXPECT_THAT(names(), ElementsAre("A", "Z"));
    xrandr({"--delmonitor", "A"});
    xrandr({"--delmonitor", "Z"});
    EXPECT_THAT(names(), ElementsAre("screen"));
    xrandr({"--fb", "1600x900", "--output", "screen", "--off"});
    EXPECT_THAT(names(), ElementsAre("screen"));
}

TEST_F(RandrDisplaysTest, ShowAMirrorAsOneScreen) {
    rig_.desktop.setDisplays({"800x900+0+0", "800x900+0+0"});
    rig_.loop.runPending();
    const auto& both = displays_.snapshot();
    ASSERT_THAT(both, testing::SizeIs(2));
    EXPECT_EQ(both[1].bounds, (Rect{0, 0, 800, 900}));
    EXPECT_EQ(both[1].pixelSize, (Size{800, 900}));
    EXPECT_EQ(both[1].mirrored, both[0].id);
}

} // namespace
} // namespace panewright
