#include "system/program.h"

#include <set>
#include <thread>

namespace panewright::test {
namespace {

class HotKeys : public testing::Test {
protected:
    void expectMoves() const {
        expectAfter(KEY_2, kLarge, desktop_, window_.window());
        expectAfter(KEY_4, kSmall, desktop_, window_.window());
    }

    static constexpr Frame kElsewhere{30, 40, 500, 350};

    const Desktop desktop_{{.arguments = {"-ardelay", "50", "-arinterval", "10"}}};
    TestClient window_{desktop_.display()};
    Program program_{(window_.activate(), desktop_)};
};

TEST_F(HotKeys, WorkUnderEveryLockKeyAndLayout) {
    std::set<std::uint16_t> locks;
    for (const int lock : {KEY_NUMLOCK, KEY_CAPSLOCK, KEY_NUMLOCK, KEY_CAPSLOCK}) {
        desktop_.keyboard().tap(static_cast<std::uint16_t>(lock));
        locks.insert(desktop_.keyboard().modifiers());
        expectMoves();
    }
    EXPECT_THAT(locks, testing::SizeIs(4));
    desktop_.run({"setxkbmap", "-layout", "fr"}); // the key of 2 types é there
    expectMoves();
    desktop_.run({"setxkbmap", "-layout", "us,ru", "-option", "grp:rctrl_toggle"});
    expectMoves();
    desktop_.keyboard().tap(KEY_RIGHTCTRL);
    expectMoves();
}

TEST_F(HotKeys, DoNothingWhileTheDesktopIsActive) {
    // It becomes active only when it says what it is.
    const TestClient icons(desktop_.display(),
                           {.client = {300, 200, 500, 400}, .wantsFocus = false});
    desktop_.x().setProperty(icons.window(), "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                             {desktop_.x().atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    desktop_.x().synchronize();
    icons.activate();
    const Frame before = outerFrame(desktop_.x(), window_.window());
    const Frame beforeIcons = outerFrame(desktop_.x(), icons.window());
    desktop_.keyboard().tap(KEY_LEFTALT, KEY_1);
    // A press means the window that is active when it is handled.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    window_.activate();
    EXPECT_EQ(outerFrame(desktop_.x(), window_.window()), before);
    expectMoves(); // so the press before has been handled
    EXPECT_EQ(outerFrame(desktop_.x(), icons.window()), beforeIcons);
}

TEST_F(HotKeys, FireOnceWhileTheyAreHeldAndWorkAgainAfterKeysThatOverlapped) {
    const auto& keyboard = desktop_.keyboard();
    // The server does repeat keys: one that nobody grabs shows it.
    keyboard.press(KEY_A);
    EXPECT_TRUE(eventually([&] { return window_.keyPresses() > 2; }));
    keyboard.release(KEY_A);
    for (const bool isSecondHeld : {false, true}) {
        keyboard.press(KEY_LEFTALT);
        keyboard.press(KEY_2);
        keyboard.press(KEY_4);
        if (isSecondHeld) {
            EXPECT_EQ(frameOnceItIs(kSmall, desktop_.x(), window_.window()), kSmall);
            // The program checks what came of its writes, for half a second at most, and repairs
            // once what differs: a move by others in that time it would undo.
            std::this_thread::sleep_for(std::chrono::milliseconds(500));
            placeWindow(desktop_.x(), window_.window(), kElsewhere);
        }
        keyboard.release(KEY_2); // with which the grab ends
        if (isSecondHeld) {
            // Nothing is to happen, so there is nothing to wait for but some twenty repeats.
            std::this_thread::sleep_for(std::chrono::milliseconds(250));
            EXPECT_EQ(outerFrame(desktop_.x(), window_.window()), kElsewhere);
        }
        keyboard.release(KEY_4);
        keyboard.release(KEY_LEFTALT);
        expectAfter(KEY_4, kSmall, desktop_, window_.window());
        expectMoves();
    }
}

} // namespace
} // namespace panewright::test
