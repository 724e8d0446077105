#include "menubar/status_item_controller.h"

#include "menubar/hot_key_collisions.h"
#include "support/launched_program.h"
#include "support/print_geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr ProcessId kEditor = 42;
constexpr ProcessId kTerminal = 43;
constexpr const char* kEditorId = "org.example.Editor";
constexpr const char* kTerminalId = "org.example.Terminal";
constexpr Rect kStart{100, 50, 800, 600};

class StatusItemControllerTest : public testing::Test {
protected:
    StatusItemControllerTest() {
        desktop().displays.setDisplays({{.id = 1, .bounds = {0, 0, 1600, 900}}});
        window_ = program_.open(kEditor, kEditorId, kStart);
    }

    MemoryDesktop& desktop() { return program_.desktop; }
    StatusItemController& controller() { return *program_.delegate.statusItemController(); }
    Rect frame() { return program_.frame(window_); }
    std::vector<std::string> eventNames() {
        std::vector<std::string> names;
        for (const auto& event : desktop().analytics.events) {
            names.push_back(event.name);
        }
        return names;
    }

    LaunchedProgram program_;
    MemoryWindowId window_ = 0;
};

TEST_F(StatusItemControllerTest, PutsTheFocusedWindowIntoTheStateOfThePressedKey) {
    program_.launch();
    const std::pair<std::uint32_t, Rect> frames[] = {{18, {0, 0, 1600, 900}},
                                                     {19, {80, 45, 1440, 810}},
                                                     {20, {160, 90, 1280, 720}},
                                                     {21, {280, 157.5, 1040, 585}}};
    for (const auto& [key, expected] : frames) {
        EXPECT_TRUE(program_.press(key));
        EXPECT_EQ(frame(), expected);
    }
    EXPECT_EQ(desktop().beeper.beeps, 0);
    ASSERT_THAT(desktop().analytics.events, SizeIs(4));
    EXPECT_EQ(desktop().analytics.events[1].attributes.at("WindowStateName"),
              EventAttribute("Centered Large"));
}

TEST_F(StatusItemControllerTest, LetsTheApplicationWinOverGlobalAndBuiltInStates) {
    program_.launch();
    const Rect global{1, 1, 300, 200};
    const Rect own{2, 2, 300, 200};
    program_.addState("Everywhere", true, kEditorId, 18, global);
    const auto editorState = program_.addState("Mine", false, kEditorId, 18, own);
    program_.press(18);
    EXPECT_EQ(frame(), own);

    const auto terminal = program_.open(kTerminal, kTerminalId, kStart);
    program_.press(18);
    EXPECT_EQ(program_.frame(terminal), global);
    EXPECT_EQ(frame(), own);

    desktop().windows.activateWindow(window_);
    desktop().windows.setFrame(window_, kStart);
    program_.press(18);
    EXPECT_EQ(frame(), own);

    controller().removeWindowState(editorState);
    program_.press(18);
    EXPECT_EQ(frame(), global);
    EXPECT_EQ(desktop().hotKeys.registeredCount(), 4U);
    EXPECT_THAT(eventNames(), Contains("RemoveWindowState"));
}

TEST_F(StatusItemControllerTest, KeepsTheHotKeysOfTheApplicationBehindThisProgram) {
    program_.launch();
    program_.addState("Mine", false, kEditorId, 40, {2, 2, 300, 200});
    desktop().windows.activateApplication(MemoryDesktop::kOwnPid);
    EXPECT_TRUE(program_.press(40));
    EXPECT_EQ(frame(), (Rect{2, 2, 300, 200}));
    program_.open(kTerminal, kTerminalId, kStart);
    EXPECT_FALSE(program_.press(40));
}

TEST_F(StatusItemControllerTest, BeepsWhenThereIsNoWindowToPlace) {
    program_.launch();
    desktop().windows.closeWindow(window_);
    EXPECT_TRUE(program_.press(19));
    EXPECT_EQ(desktop().beeper.beeps, 1);
    EXPECT_THAT(eventNames(), ElementsAre("ApplyWindowState")); // the attempt counts
    controller().applyWindowStateToActiveWindow(nullptr);
    EXPECT_EQ(desktop().beeper.beeps, 2);
}

TEST_F(StatusItemControllerTest, AsksForPermissionAndComesForwardWithoutIt) {
    program_.launch();
    desktop().accessibility.setTrusted(false);
    EXPECT_TRUE(program_.press(19));
    EXPECT_EQ(frame(), kStart);
    EXPECT_EQ(desktop().accessibility.promptsShown(), 1);
    EXPECT_EQ(desktop().windows.frontmost()->processIdentifier, MemoryDesktop::kOwnPid);
    EXPECT_EQ(desktop().beeper.beeps, 0);
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(StatusItemControllerTest, AppliesStatesByName) {
    program_.launch();
    program_.addState("Mine", true, kTerminalId, 40, {2, 2, 300, 200});
    const struct {
        const char* name;
        std::optional<std::string> application;
        bool found;
    } cases[] = {{"Centered Large", std::nullopt, true},
                 {"centered large", std::nullopt, false},
                 {"Centered Large", kEditorId, false},
                 {"Mine", kEditorId, false},
                 {"Mine", kTerminalId, true},
                 {"Mine", std::nullopt, true}};
    for (const auto& [name, application, found] : cases) {
        desktop().windows.setFrame(window_, kStart);
        EXPECT_EQ(application ? controller().applyWindowStateNamed(name, *application)
                              : controller().applyWindowStateNamed(name),
                  found)
            << name;
        EXPECT_EQ(frame() != kStart, found) << name;
    }
    desktop().windows.closeWindow(window_);
    EXPECT_TRUE(controller().applyWindowStateNamed("Mine")); // attempted
    EXPECT_EQ(desktop().beeper.beeps, 1);
}

TEST_F(StatusItemControllerTest, InstallsNothingUntilAnApplicationIsKnown) {
    LaunchedProgram empty;
    empty.launch();
    EXPECT_EQ(empty.desktop.hotKeys.registeredCount(), 0U);
    empty.desktop.windows.activateApplication(MemoryDesktop::kOwnPid);
    EXPECT_EQ(empty.desktop.hotKeys.registeredCount(), 0U);
    empty.open(kEditor, kEditorId, kStart);
    EXPECT_EQ(empty.desktop.hotKeys.registeredCount(), 4U);
}

constexpr Rect kLeft{0, 0, 1440, 900};
constexpr Rect kMiddle{1440, 0, 1920, 1080};
constexpr Rect kRight{3360, 0, 1440, 900};
constexpr std::uint32_t kNextKey = 45;

class SeveralDisplaysTest : public StatusItemControllerTest {
protected:
    SeveralDisplaysTest() {
        desktop().displays.setDisplays({{.id = 1, .bounds = kLeft},
                                        {.id = 2, .bounds = kMiddle},
                                        {.id = 3, .bounds = kRight}});
        desktop().keyboardLayout.setKeys({{kNextKey, "n"}});
        desktop().userDefaults.setObject("MoveToNextWindowKeyEventKeyCode", std::int64_t{kNextKey});
        desktop().userDefaults.setObject("MoveToNextWindowKeyEventKeyModifiers",
                                         std::int64_t{0x80000});
    }
    void allowMoving(bool allow) { desktop().userDefaults.setObject("AllowMoveWindow", allow); }
};

TEST_F(SeveralDisplaysTest, MovesOnWhenAStateIsInEffectAndTheUserAllowsIt) {
    program_.launch();
    for (const bool allowed : {false, true}) {
        allowMoving(allowed);
        desktop().windows.setFrame(window_, kStart);
        program_.press(20);
        EXPECT_EQ(frame(), (Rect{144, 90, 1152, 720}));
        program_.press(20);
        EXPECT_EQ(frame(), allowed ? (Rect{1632, 108, 1536, 864}) : (Rect{144, 90, 1152, 720}));
    }
    program_.press(20);
    EXPECT_EQ(frame(), (Rect{3504, 90, 1152, 720}));
    program_.press(20);
    EXPECT_EQ(frame(), (Rect{144, 90, 1152, 720}));
    EXPECT_EQ(desktop().beeper.beeps, 0);
}

TEST_F(SeveralDisplaysTest, MovesAFullScreenWindowOnThoughItsFrameDiffers) {
    program_.launch();
    allowMoving(true);
    const struct {
        Rect window;
        Rect after;
    } cases[] = {
        {{0, 23, 1440, 877}, kMiddle}, // below a menu bar, and the state asks for all of it
        {{0, 23, 1440, 870}, kMiddle},
        {{0, 23, 1440, 869}, kLeft}, // too short to count
        {{1, 23, 1440, 877}, kLeft},
        {kLeft, kMiddle}};
    for (const auto& [window, after] : cases) {
        desktop().windows.setFrame(window_, window);
        program_.press(18);
        EXPECT_EQ(frame(), after) << window.height;
    }
}

TEST_F(SeveralDisplaysTest, StaysOnTheOnlyDisplay) {
    desktop().displays.setDisplays({{.id = 1, .bounds = kLeft}});
    program_.launch();
    allowMoving(true);
    program_.press(18);
    program_.press(18);
    EXPECT_EQ(frame(), kLeft);
    EXPECT_EQ(desktop().beeper.beeps, 0);
    program_.press(kNextKey);
    EXPECT_EQ(desktop().beeper.beeps, 1);
}

TEST_F(SeveralDisplaysTest, MovesToTheNextDisplayWithItsKeyAndShowsIt) {
    program_.launch();
    EXPECT_EQ(controller().moveToNextDisplayItem().keyEquivalent, "N");
    EXPECT_EQ(controller().moveToNextDisplayItem().keyEquivalentModifierMask, 0x80000U);
    program_.press(kNextKey);
    EXPECT_EQ(frame(), (Rect{1573.3333740234375, 60.000003814697266, 1066.666748046875, 720}));
    program_.press(kNextKey);
    program_.press(kNextKey);
    EXPECT_NEAR(frame().x, 100, 0.01);
    EXPECT_THAT(eventNames(),
                ElementsAre("MoveToNextDisplay", "MoveToNextDisplay", "MoveToNextDisplay"));
    desktop().windows.setFrame(window_, kLeft);
    program_.press(kNextKey);
    EXPECT_EQ(frame(), kMiddle);

    desktop().userDefaults.removeObjectForKey("MoveToNextWindowKeyEventKeyCode");
    controller().addEventHandlers();
    EXPECT_EQ(controller().moveToNextDisplayItem().keyEquivalent, "");
    EXPECT_FALSE(program_.press(kNextKey));
}

TEST_F(SeveralDisplaysTest, BeepsForAWindowThatCannotMove) {
    program_.launch();
    desktop().windows.closeWindow(window_);
    program_.press(kNextKey);
    EXPECT_EQ(desktop().beeper.beeps, 1);
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST(HotKeyCollisions, LetTheLastOfEqualShortcutsHold) {
    const auto state = [](std::uint64_t keyCode, std::uint64_t flags) {
        auto made = WindowState::init();
        made->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(keyCode, flags));
        return made;
    };
    const auto weak = state(18, 0x80000);
    const auto other = state(19, 0x80000);
    const auto strong = state(18, 0x80000);
    const auto bare = WindowState::init();
    const auto anotherBare = WindowState::init();
    EXPECT_THAT(statesWithoutCollisions({{weak, other, bare}, {anotherBare}, {strong}}),
                ElementsAre(anotherBare, strong, other));
    EXPECT_EQ(combinationNumber(*weak), 0x80012U);
    EXPECT_EQ(combinationNumber(*bare), 0U);
    // The sum is what collides, so a key code past the flags' lowest bit can collide with them.
    EXPECT_THAT(statesWithoutCollisions({{state(0x20000 + 18, 0)}, {strong}, {state(18, 0x20000)}}),
                SizeIs(2));
}

} // namespace
} // namespace panewright
