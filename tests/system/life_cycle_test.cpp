#include "system/program.h"

#include <csignal>
#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

namespace panewright::test {
namespace {

using testing::ContainsRegex;
using testing::Gt;
using testing::Optional;

constexpr std::chrono::milliseconds kAtOnce{2000};

TEST(LifeCycle, EndsOnSigtermAndReleasesTheKeys) {
    Desktop desktop;
    const TestClient window(desktop.display());
    window.activate(); // hot keys are installed while there is a program to be in
    const xcb_keycode_t key = Keyboard::keycode(KEY_2);
    Program program(desktop);
    EXPECT_FALSE(desktop.x().grabKey(XCB_MOD_MASK_1, key));
    program->sendSignal(SIGTERM);
    EXPECT_THAT(program->waitForEnd(kAtOnce), Optional(0));
    EXPECT_TRUE(desktop.x().grabKey(XCB_MOD_MASK_1, key));
}

TEST(LifeCycle, EndsWithAMessageWhenTheServerGoesAway) {
    Desktop desktop;
    Program program(desktop);
    const std::size_t before = program->standardError().size();
    desktop.server().kill();
    EXPECT_THAT(program->waitForEnd(kAtOnce), Optional(Gt(0)));
    EXPECT_THAT(program->standardError().substr(before), ContainsRegex("X server|display"));
}

TEST(LifeCycle, EndsWithAMessageWithoutADisplay) {
    const PrivateHome home;
    const Environment none = home.environment();
    Environment unreachable = none;
    unreachable["DISPLAY"] = ":32000";
    for (const Environment& environment : {none, unreachable}) {
        ChildProcess program({PANEWRIGHT_PROGRAM}, environment);
        EXPECT_THAT(program.waitForEnd(kAtOnce), Optional(Gt(0)));
        EXPECT_THAT(program.standardError(), ContainsRegex("X server|DISPLAY|display"));
    }
}

TEST(LifeCycle, WorksOnAWaylandSessionAndSaysWhatItCannotReach) {
    Desktop desktop;
    const TestClient window(desktop.display());
    window.activate();
    Environment environment = desktop.environment();
    environment["XDG_SESSION_TYPE"] = "wayland";
    environment["WAYLAND_DISPLAY"] = "wayland-0";
    Program program(environment);
    EXPECT_THAT(program->standardError(), ContainsRegex("Wayland.*X11"));
    desktop.keyboard().tap(KEY_LEFTALT, KEY_2);
    const Frame centredLarge{.x = 80, .y = 45, .width = 1440, .height = 810};
    EXPECT_EQ(frameOnceItIs(centredLarge, desktop.x(), window.window()), centredLarge);
}

} // namespace
} // namespace panewright::test
