#include "menubar/status_item_controller.h"

#include "support/program_fixture.h"

namespace panewright {
namespace {

constexpr Rect kStart{100, 50, 800, 600};
constexpr std::uint32_t kNextKey = 45;

constexpr Rect kLeft{0, 0, 1440, 900}, kMiddle{1440, 0, 1920, 1080}, kRight{3360, 0, 1440, 900};

class StatusItemControllerTest : public ProgramFixture {
protected:
    StatusItemControllerTest() {
        desktop_.displays.setDisplays({{.id = 1, .bounds = kLeft},
                                       {.id = 2, .bounds = kMiddle},
                                       {.id = 3, .bounds = kRight}});
        desktop_.keyboardLayout.setKeys({{kNextKey, "n"}, {18, "1"}});
        desktop_.userDefaults.setObject("MoveToNextWindowKeyEventKeyCode", std::int64_t{kNextKey});
        desktop_.userDefaults.setObject("MoveToNextWindowKeyEventKeyModifiers",
                                        std::int64_t{0x80000});
        window_ = openProgram(kEditor, kEditorId, kStart);
        launch();
    }

    Rect frame() { return frameOf(window_); }
    Rect frameAfter(std::uint32_t key) {
        EXPECT_TRUE(press(key)) << key;
        return frame();
    }
    void expectTracked(ProcessId pid, const Rect& frame, DisplayId display) {
        const FocusTracking& tracking = controller().tracking();
        desktop_.mainLoop.runPending();
        EXPECT_EQ(tracking.currentApplication()->processIdentifier, pid);
        EXPECT_EQ(tracking.windowRect(), frame);
        EXPECT_EQ(tracking.currentDisplay()->displayId(), display);
    }

    WindowId window_ = 0;
};

TEST_F(StatusItemControllerTest, LetsTheApplicationWinOverGlobalAndBuiltInStates) {
    const Rect global{1, 1, 300, 200};
    const Rect own{2, 2, 300, 200};
    EXPECT_EQ(frameAfter(18), kLeft);
    addState("Everywhere", true, kEditorId, 18, global);
    const auto editorState = addState("Mine", false, kEditorId, 18, own);
    EXPECT_EQ(frameAfter(18), own);

    const auto terminal = openProgram(kTerminal, kTerminalId, kStart);
    EXPECT_EQ(frameAfter(18), own);
    EXPECT_EQ(frameOf(terminal), global);

    desktop_.windows.activateWindow(window_);
    desktop_.windows.setFrame(window_, kStart);
    EXPECT_EQ(frameAfter(18), own);
    controller().removeWindowState(nullptr);
    controller().removeWindowState(editorState);
    EXPECT_EQ(frameAfter(18), global);
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 5U); // four states and the next display
}

TEST_F(StatusItemControllerTest, FollowsTheFocusedWindowAndItsDisplay) {
    expectTracked(kEditor, kStart, 1);
    desktop_.windows.setFrame(window_, {1500, 50, 700, 600});
    expectTracked(kEditor, {1500, 50, 700, 600}, 2);
    const auto opened = openProgram(kEditor, kEditorId, {1, 2, 3, 4});
    desktop_.windows.setFrame(window_, {9, 9, 9, 9}); // no longer the tracked one
    expectTracked(kEditor, {1, 2, 3, 4}, 1);
    desktop_.windows.closeWindow(opened); // where nothing is there or known, the last frame stays
    desktop_.displays.setDisplays({{.id = 7, .bounds = kLeft}});
    expectTracked(kEditor, {1, 2, 3, 4}, 7);
    desktop_.windows.addApplication({kTerminal, kTerminalId, "Terminal"});
    desktop_.windows.activateApplication(kTerminal);
    expectTracked(kTerminal, {1, 2, 3, 4}, 7);
    EXPECT_EQ(controller().tracking().windowElement(), nullptr);
}

TEST_F(StatusItemControllerTest, AsksForPermissionAndComesForwardWithoutIt) {
    desktop_.windows.setPermitted(false);
    EXPECT_EQ(frameAfter(19), kStart);
    EXPECT_EQ(desktop_.windows.promptsShown(), 1);
    EXPECT_EQ(frontmost(), MemoryDesktop::kOwnPid);
}

TEST_F(StatusItemControllerTest, MovesToTheNextDisplayWithItsKeyAndShowsIt) {
    EXPECT_EQ(controller().menu().fixedItems().moveToNextDisplayItem->shortcut.keyEquivalent, "N");
    EXPECT_EQ(
        controller().menu().fixedItems().moveToNextDisplayItem->shortcut.keyEquivalentModifierMask,
        0x80000U);
    EXPECT_EQ(frameAfter(kNextKey),
              (Rect{1573.3333740234375, 60.000003814697266, 1066.666748046875, 720}));
    desktop_.windows.setFrame(window_, kLeft);
    EXPECT_EQ(frameAfter(kNextKey), kMiddle);
    desktop_.userDefaults.removeObjectForKey("MoveToNextWindowKeyEventKeyCode");
    controller().addEventHandlers();
    EXPECT_EQ(controller().menu().fixedItems().moveToNextDisplayItem->shortcut.keyEquivalent, "");
    EXPECT_FALSE(press(kNextKey));
}

} // namespace
} // namespace panewright
