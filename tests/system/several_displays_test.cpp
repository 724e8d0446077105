#include "support/panel.h"
#include "system/program.h"

#include <thread>

namespace panewright::test {
namespace {

/// Three displays side by side, with keys that the built-in states do not use.
class SeveralDisplays : public testing::Test {
protected:
    SeveralDisplays() {
        desktop_.setDisplays({"1000x800+0+0", "1366x768+1000+0", "640x480+2366+100"});
        window_.activate();
    }
    void writeSettings(const std::string& settings) const {
        setContent(desktop_.environment()["XDG_CONFIG_HOME"] + "/Panewright/Panewright.conf",
                   "[General]\n" + settings);
    }
    void expectMove(std::uint16_t key, const Frame& frame) const {
        expectAfter(key, frame, desktop_, window_.window());
    }

    Desktop desktop_{{.width = 3006, .height = 900}};
    TestClient window_{desktop_.display()};
};

constexpr Frame kSmallOnFirst{175, 140, 650, 520};
constexpr Frame kSmallOnSecond{1240, 135, 888, 499};
constexpr Frame kSmallOnThird{2478, 184, 416, 312};
constexpr Frame kLargeOnFirst{50, 40, 900, 720};

TEST_F(SeveralDisplays, KeepAStateWhereItIsUnlessTheUserLetsItMoveOn) {
    const Program program(desktop_);
    expectMove(KEY_4, kSmallOnFirst);
    desktop_.keyboard().tap(KEY_LEFTALT, KEY_4);
    expectMove(KEY_2, kLargeOnFirst); // it was still here
    expectMove(KEY_4, kSmallOnFirst);

    writeSettings("AllowMoveWindow=true\n");
    expectMove(KEY_4, kSmallOnSecond); // where coordinates are fractions
    expectMove(KEY_4, kSmallOnThird);
    expectMove(KEY_4, kSmallOnFirst);

    expectMove(KEY_1, {0, 0, 1000, 800});
    expectMove(KEY_1, {1000, 0, 1366, 768});
    // The program looks once at what came of its writes, and repairs what another has moved by
    // then.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const Frame belowAMenuBar{1000, 23, 1366, 745};
    placeWindow(desktop_.x(), window_.window(), belowAMenuBar);
    expectMove(KEY_1, {2366, 100, 640, 480});
}

TEST_F(SeveralDisplays, AreFilledAsFarAsAPanelOnOneOfThemLetsThem) {
    writeSettings("AllowMoveWindow=true\n");
    const Panel panel(desktop_.display(), {1000, 0, 1366, 100},
                      {0, 0, 100, 0, 0, 0, 0, 0, 1000, 2365});
    const Program program(desktop_);
    for (int round = 0; round < 2; ++round) {
        expectMove(KEY_1, {0, 0, 1000, 800});
        expectMove(KEY_1, {1000, 100, 1366, 668});
        expectMove(KEY_1, {2366, 100, 640, 480}); // it counted as full on the one before
        expectMove(KEY_4, kSmallOnThird);
        expectMove(KEY_4, kSmallOnFirst);
    }
}

TEST_F(SeveralDisplays, MayBeUnpluggedBetweenTwoPressesAndDuringOne) {
    writeSettings("AllowMoveWindow=true\n");
    Program program(desktop_);
    expectMove(KEY_4, kSmallOnFirst);
    expectMove(KEY_4, kSmallOnSecond);
    desktop_.setDisplays({"1000x800+0+0", "1366x768+1000+0"});
    expectMove(KEY_4, kSmallOnFirst);

    desktop_.keyboard().press(KEY_LEFTALT);
    desktop_.keyboard().press(KEY_4);
    desktop_.setDisplays({"1000x800+0+0"});
    desktop_.keyboard().release(KEY_4);
    desktop_.keyboard().release(KEY_LEFTALT);
    // The window manager brings the window back to what is left.
    ASSERT_TRUE(eventually([&] { return outerFrame(desktop_.x(), window_.window()).x < 1000; }));
    expectMove(KEY_2, kLargeOnFirst);
    desktop_.keyboard().tap(KEY_LEFTALT, KEY_2); // there is no other display
    expectMove(KEY_4, kSmallOnFirst);
    EXPECT_EQ(program->exitStatus(), std::nullopt);
}

} // namespace
} // namespace panewright::test
