#include "system/program.h"

#include <array>
#include <gmock/gmock.h>
#include <linux/input-event-codes.h>
#include <string>
#include <thread>
#include <vector>

namespace panewright::test {
namespace {

constexpr Frame kElsewhere{.x = 30, .y = 40, .width = 500, .height = 350};
constexpr Frame kCentredLarge{.x = 80, .y = 45, .width = 1440, .height = 810};
constexpr Frame kCentredSmall{.x = 280, .y = 158, .width = 1040, .height = 585};

/// A press of Alt and the key, and the frame that the window has once it is the expected one.
Frame frameAfter(std::uint16_t key, const Frame& expected, const Desktop& desktop,
                 const TestClient& window) {
    desktop.keyboard().tap(KEY_LEFTALT, key);
    return frameOnceItIs(expected, desktop.x(), window.window());
}

struct DisplayCase {
    int width;
    int height;
    std::array<Frame, 4> frames; // of Alt+1 to Alt+4
};

TEST(HotKeys, PutTheFocusedWindowIntoTheBuiltInStates) {
    const std::vector<DisplayCase> cases{
        {1600,
         900,
         {{{0, 0, 1600, 900}, {80, 45, 1440, 810}, {160, 90, 1280, 720}, {280, 158, 1040, 585}}}},
        {1366,
         768,
         {{{0, 0, 1366, 768}, {69, 39, 1229, 691}, {137, 77, 1093, 614}, {240, 135, 888, 499}}}},
    };
    for (const auto& [width, height, frames] : cases) {
        SCOPED_TRACE(width);
        Desktop desktop({.width = width, .height = height, .arguments = {}});
        const TestClient other(desktop.display());
        const TestClient window(desktop.display());
        window.activate();
        const Frame untouched = outerFrame(desktop.x(), other.window());
        const Program program(desktop);
        for (std::size_t i = 0; i < frames.size(); ++i) {
            const auto key = static_cast<std::uint16_t>(KEY_1 + i);
            EXPECT_EQ(frameAfter(key, frames.at(i), desktop, window), frames.at(i));
        }
        EXPECT_EQ(outerFrame(desktop.x(), other.window()), untouched);

        other.activate();
        EXPECT_EQ(frameAfter(KEY_2, frames[1], desktop, other), frames[1]);
        EXPECT_EQ(outerFrame(desktop.x(), window.window()), frames[3]);
    }
}

TEST(HotKeys, WorkUnderEveryLockKey) {
    Desktop desktop;
    const TestClient window(desktop.display());
    window.activate();
    const Program program(desktop);
    for (const bool numLock : {false, true}) {
        for (const bool capsLock : {false, true}) {
            desktop.keyboard().setNumLock(numLock);
            desktop.keyboard().setCapsLock(capsLock);
            SCOPED_TRACE(testing::Message() << "NumLock " << numLock << ", CapsLock " << capsLock);
            EXPECT_EQ(frameAfter(KEY_2, kCentredLarge, desktop, window), kCentredLarge);
            EXPECT_EQ(frameAfter(KEY_4, kCentredSmall, desktop, window), kCentredSmall);
        }
    }
}

TEST(HotKeys, StayOnThePhysicalKeyWhenTheLayoutChanges) {
    Desktop desktop;
    const TestClient window(desktop.display());
    window.activate();
    const Program program(desktop);

    desktop.setKeyboardLayout("fr"); // the key of 2 types é there
    EXPECT_EQ(frameAfter(KEY_2, kCentredLarge, desktop, window), kCentredLarge);

    desktop.setKeyboardLayout("us,ru", {"-option", "grp:rctrl_toggle"});
    EXPECT_EQ(frameAfter(KEY_4, kCentredSmall, desktop, window), kCentredSmall);
    desktop.keyboard().tap(KEY_RIGHTCTRL);
    EXPECT_EQ(frameAfter(KEY_2, kCentredLarge, desktop, window), kCentredLarge);
}

TEST(HotKeys, FireOnceWhileTheKeyIsHeld) {
    Desktop desktop({.arguments = {"-ardelay", "50", "-arinterval", "10"}});
    TestClient window(desktop.display());
    window.activate();
    const Program program(desktop);

    desktop.keyboard().press(KEY_LEFTALT);
    desktop.keyboard().press(KEY_2);
    EXPECT_EQ(frameOnceItIs(kCentredLarge, desktop.x(), window.window()), kCentredLarge);
    // The program checks what came of its writes, for half a second at most, and repairs once what
    // differs: a move by others in that time it would undo.
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    placeWindow(desktop.x(), window.window(), kElsewhere);
    // Nothing is to happen, so there is nothing to wait for but some twenty repeats.
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    EXPECT_EQ(outerFrame(desktop.x(), window.window()), kElsewhere);
    desktop.keyboard().release(KEY_2);
    desktop.keyboard().release(KEY_LEFTALT);
    EXPECT_EQ(frameAfter(KEY_4, kCentredSmall, desktop, window), kCentredSmall);

    // The server does repeat keys: one that nobody grabs shows it.
    desktop.keyboard().press(KEY_A);
    EXPECT_TRUE(eventually([&] { return window.keyPresses() > 2; }));
    desktop.keyboard().release(KEY_A);
}

TEST(HotKeys, LeaveAKeyToTheProgramThatHoldsIt) {
    Desktop desktop;
    TestClient holder(desktop.display());
    ASSERT_TRUE(holder.grabKey(XCB_MOD_MASK_1, Keyboard::keycode(KEY_3)));
    const TestClient window(desktop.display());
    window.activate();
    Program program(desktop);

    EXPECT_EQ(frameAfter(KEY_2, kCentredLarge, desktop, window), kCentredLarge);
    desktop.keyboard().tap(KEY_LEFTALT, KEY_3);
    EXPECT_TRUE(eventually([&] { return holder.keyPresses() == 1; }));
    EXPECT_EQ(frameAfter(KEY_4, kCentredSmall, desktop, window), kCentredSmall);
    EXPECT_EQ(holder.keyPresses(), 1);
    EXPECT_EQ(program->exitStatus(), std::nullopt);
}

TEST(HotKeys, SurviveWindowsThatVanishDuringThePress) {
    Desktop desktop;
    // There from the start: a window made after the others could get the identifier of the last
    // one, which openbox keeps calling active.
    const TestClient survivor(desktop.display());
    Program program(desktop);
    constexpr int kRounds = 30;
    for (int round = 0; round < kRounds; ++round) {
        const TestClient window(desktop.display());
        window.activate();
        desktop.keyboard().tap(KEY_LEFTALT, KEY_2);
        // From at once to after the writes.
        std::this_thread::sleep_for(std::chrono::microseconds(100) * round);
        window.destroy();
    }
    survivor.activate();
    EXPECT_EQ(frameAfter(KEY_2, kCentredLarge, desktop, survivor), kCentredLarge);
    EXPECT_EQ(program->exitStatus(), std::nullopt);
}

} // namespace
} // namespace panewright::test
