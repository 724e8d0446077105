#include "contract/x11_rig.h"

#include <gmock/gmock.h>
#include <xcb/randr.h>

#include <cstdlib>

namespace panewright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class RandrDisplaysTest : public testing::Test {
protected:
    void xrandr(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "xrandr");
        test::runToEnd(arguments, rig_.desktop.environment());
        rig_.loop.runPending();
    }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& screen : rig_.ports->displays.screens()) {
            names.push_back(screen.name);
        }
        return names;
    }

    X11Rig rig_;
};

TEST_F(RandrDisplaysTest, TellOnceOfABurstOfChanges) {
    int changes = 0;
    const auto registration = rig_.ports->displays.onChange([&] { ++changes; });
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

TEST_F(RandrDisplaysTest, PutThePrimaryFirstElseTheOneAtTheOrigin) {
    xrandr({"--setmonitor", "Z", "800/200x900/200+0+0", "screen"});
    xrandr({"--setmonitor", "A", "800/200x900/200+800+0", "none"});
    EXPECT_THAT(names(), ElementsAre("Z", "A"));
    xrandr({"--delmonitor", "A"});
    xrandr({"--setmonitor", "*A", "800/200x900/200+800+0", "none"});
    EXPECT_THAT(names(), ElementsAre("A", "Z"));
}

TEST_F(RandrDisplaysTest, KeepTheLastOnesWhileThereIsNone) {
    const auto before = names();
    xrandr({"--fb", "1600x900", "--output", "screen", "--off"});
    EXPECT_EQ(names(), before);
    EXPECT_THAT(before, testing::SizeIs(1));
}

TEST_F(RandrDisplaysTest, HaveTheIdentityOfTheHardware) {
    const auto& displays = rig_.ports->displays;
    const auto before = displays.activeDisplays(1).front();
    EXPECT_EQ(displays.vendorNumber(before), 0U);

    std::vector<std::uint8_t> edid{0,    0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0,
                                   0x10, 0xAC, 0x64, 0xA0, 0x4C, 0x37, 0x30, 0x31};
    edid.resize(128);
    const auto& x = rig_.desktop.x();
    const auto outputs = xcb_randr_get_screen_resources_reply(
        x.connection(), xcb_randr_get_screen_resources(x.connection(), x.root()), nullptr);
    ASSERT_TRUE(outputs);
    xcb_randr_change_output_property(x.connection(),
                                     *xcb_randr_get_screen_resources_outputs(outputs),
                                     x.atom("EDID"), XCB_ATOM_INTEGER, 8, XCB_PROP_MODE_REPLACE,
                                     static_cast<std::uint32_t>(edid.size()), edid.data());
    std::free(outputs);
    x.synchronize();
    EXPECT_TRUE(rig_.eventually(
        [&] { return displays.vendorNumber(displays.activeDisplays(1).front()) == 0x10AC; }));
    const auto display = displays.activeDisplays(1).front();
    EXPECT_EQ(displays.serialNumber(display), 0x3130374CU);
    EXPECT_NE(display, before);
}

} // namespace
} // namespace panewright
