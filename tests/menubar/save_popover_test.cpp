#include "support/program_fixture.h"

namespace panewright {
namespace {

using namespace std::chrono_literals;

constexpr Rect kFrame{100, 50, 800, 600};
constexpr std::uint16_t kK = 40;

/// The program, with the save popover opened from the menu for an editor's window.
class SavePopoverTest : public ProgramFixture {
protected:
    SavePopoverTest() {
        desktop_.workAreas.setWorkArea(1, {0, 30, 1600, 870});
        editor_ = openProgram(kEditor, kEditorId, kFrame);
        launch();
        desktop_.statusItem.place = Rect{1500, 0, 24, 30};
        saveFromMenu();
    }
    MemorySaveShortcutView& view() { return *desktop_.views.save; }
    bool isShown() { return desktop_.views.save && view().popover().isShown(); }
    const WindowState& pending() { return *view().controller().windowState(); }

    void saveFromMenu() { choose("Save Current Window…"); }
    QFShortcutRecorder& recorder() { return view().controller().shortcutRecorder(); }
    void recordOptionK() {
        view().recorderHasFocus = true;
        record(recorder(), kK);
    }
    void save(const std::string& name) {
        view().name = name;
        view().controller().save();
        desktop_.mainLoop.runPending();
    }
    const WindowState& lastStateOf(std::string_view key) {
        return *Model::instance().windowStatesForAppBundleId(key)->back();
    }

    WindowId editor_ = 0;
};

TEST_F(SavePopoverTest, SavesTheTrackedWindowUnderANameAndAShortcut) {
    EXPECT_EQ(view().popover().shownAt, (PopoverAnchor{{1500, 0, 24, 30}, {0, 30, 1600, 870}}));
    EXPECT_EQ(view().appOnlyTitle, "Only active for org.example.Editor");
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 0U);
    recordOptionK();
    view().preferred = true;
    save(" Left half ");
    EXPECT_FALSE(isShown());
    EXPECT_EQ(frontmost(), kEditor);
    const auto& saved = lastStateOf(kEditorId);
    EXPECT_EQ(saved.windowStateName(), " Left half ");
    EXPECT_EQ(saved.originalWindowRect(), kFrame);
    EXPECT_EQ(saved.originalQuartzDisplayBounds(), kScreen);
    EXPECT_TRUE(saved.prefersDisplay());
    EXPECT_FALSE(saved.isGlobal());
    EXPECT_TRUE(press(kK));
}

TEST_F(SavePopoverTest, RefusesANameOfSpacesAndSavesForAll) {
    view().allApplications = true;
    view().controller().onActiveForAll();
    EXPECT_FALSE(view().appOnly);
    for (const auto* name : {"", " \t "}) {
        save(name);
        EXPECT_TRUE(isShown());
    }
    EXPECT_EQ(desktop_.beeper.beeps, 2);
    save("Everywhere");
    EXPECT_EQ(lastStateOf("globals").appBundleId(), kEditorId);
    EXPECT_EQ(lastStateOf("globals").keyEvent(), nullptr);
}

TEST_F(SavePopoverTest, LeavesAProgramWithoutIdentifierOnlyTheChoiceOfAll) {
    constexpr ProcessId kNobody = 44;
    desktop_.windows.addApplication({kNobody, std::nullopt, "Nobody's"});
    const auto window = desktop_.windows.openWindow({.pid = kNobody, .frame = kFrame});
    for (const auto opened : {window, editor_, window}) {
        desktop_.windows.activateWindow(opened);
        desktop_.mainLoop.runPending();
        EXPECT_EQ(view().appOnlyEnabled, opened == editor_);
        EXPECT_EQ(view().appOnly, opened == editor_);
        EXPECT_EQ(view().allApplications, opened == window);
    }
    save("Of nobody");
    EXPECT_EQ(lastStateOf("globals").appBundleId(), std::nullopt);
}

TEST_F(SavePopoverTest, TakesTheWindowAsItIsNowAndForgetsTheShortcut) {
    recordOptionK();
    view().name = "Kept";
    desktop_.windows.setFrame(editor_, {5, 6, 700, 500});
    desktop_.mainLoop.runPending();
    EXPECT_EQ(pending().originalWindowRect(), (Rect{5, 6, 700, 500}));
    EXPECT_EQ(pending().keyEvent(), nullptr);
    EXPECT_EQ(recorder().keyCode(), kK); // still shown
    desktop_.displays.setDisplays({{.id = 1, .bounds = {0, 0, 800, 600}}});
    desktop_.mainLoop.runPending();
    EXPECT_EQ(pending().originalQuartzDisplayBounds(), kScreen);
    const auto& tracking = controller().tracking();
    EXPECT_EQ(tracking.currentDisplay()->bounds(), (Rect{0, 0, 800, 600}));
    openProgram(kTerminal, kTerminalId, kFrame);
    EXPECT_EQ(pending().appBundleId(), kTerminalId);
    EXPECT_EQ(view().appOnlyTitle, "Only active for org.example.Terminal");
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 0U);
    EXPECT_EQ(view().name, "Kept");
    desktop_.windows.closeWindow(editor_);
    save("Terminal");
    EXPECT_EQ(lastStateOf(kTerminalId).windowStateName(), "Terminal");
}

TEST_F(SavePopoverTest, EscapeClosesAndTheHotKeysReturnWithTheNextApplication) {
    view().recorderHasFocus = true;
    recorder().keyDown({kSpace, 0});
    view().controller().closeRequested();
    EXPECT_FALSE(isShown() || recorder().isRecording());
    saveFromMenu();
    recordOptionK();
    EXPECT_FALSE(view().controller().keyDown({kK, 0}));
    EXPECT_TRUE(view().controller().keyDown({kEscape, 0}));
    EXPECT_FALSE(isShown());
    desktop_.mainLoop.runPending();
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 4U);

    saveFromMenu();
    EXPECT_EQ(recorder().keyCode(), -1);
    view().controller().cancel();
    EXPECT_FALSE(isShown());
}

TEST_F(SavePopoverTest, OnlyBeepsForAWindowThatCannotBePlaced) {
    view().controller().cancel();
    const auto fixed = desktop_.windows.openWindow(
        {.pid = kEditor, .frame = {0, 0, 100, 100}, .isResizable = false});
    desktop_.windows.activateWindow(fixed);
    desktop_.mainLoop.runPending();
    saveFromMenu();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(desktop_.beeper.beeps, 1);
}

TEST_F(SavePopoverTest, SaysWhatItKnowsAndHangsInTheCornerWhileNobodyKnowsWhereTheIconIs) {
    desktop_.hotKeys.takeByAnotherProgram(kK, 0x800);
    recordOptionK();
    EXPECT_EQ(view().remark, "Another program uses this shortcut.");
    recorder().keyDown({kSpace, 0});
    recorder().keyWithoutCode();
    EXPECT_EQ(view().remark, "This key cannot be a shortcut.");
    recorder().keyDown({38, 0});
    EXPECT_EQ(view().remark, "");
    addState("Theirs", false, kTerminalId, kK, kFrame);
    recordOptionK();
    view().allApplications = true;
    view().controller().onActiveForAll();
    EXPECT_EQ(view().remark, "Another program uses this shortcut.\nAlso used by “Theirs”.");
    view().allApplications = false;
    view().controller().onActiveForAppOnly();
    EXPECT_EQ(view().remark, "Another program uses this shortcut.");
    view().appOnlyToolTip.clear();
    view().controller().onActiveForAppOnly();
    desktop_.mainLoop.advance(199ms);
    EXPECT_EQ(view().appOnlyToolTip, "");
    desktop_.mainLoop.advance(1ms);
    EXPECT_NE(view().appOnlyToolTip, "");
    desktop_.statusItem.place = std::nullopt;
    saveFromMenu();
    EXPECT_EQ(view().popover().shownAt, (PopoverAnchor{{1600, 30, 0, 0}, {0, 30, 1600, 870}}));
}

} // namespace
} // namespace panewright
