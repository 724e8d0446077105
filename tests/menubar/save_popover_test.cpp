#include "support/launched_program.h"
#include "support/print_geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;

constexpr ProcessId kEditor = 42;
constexpr ProcessId kTerminal = 43;
constexpr Rect kFrame{100, 50, 800, 600};
constexpr std::uint16_t kK = 40, kEscape = 53, kSpace = 49;

/// The program, with the save popover opened from the menu for an editor's window.
class SavePopoverTest : public testing::Test {
protected:
    SavePopoverTest() {
        desktop().displays.setDisplays({{.id = 1, .bounds = {0, 0, 1600, 900}}});
        desktop().workAreas.setWorkArea(1, {0, 30, 1600, 870});
        editor_ = program_.open(kEditor, "org.example.Editor", kFrame);
        program_.launch();
        desktop().statusItem.place = Rect{1500, 0, 24, 30};
        saveFromMenu();
    }
    MemoryDesktop& desktop() { return program_.desktop; }
    MemorySaveShortcutView& view() { return *desktop().views.save; }
    bool isShown() { return desktop().views.save && view().popover().isShown(); }
    const WindowState& pending() { return *view().controller().windowState(); }

    void saveFromMenu() {
        desktop().statusItem.click();
        EXPECT_TRUE(desktop().menuView.choose("Save Current Window…"));
        desktop().mainLoop.runPending();
    }
    void record(std::uint16_t keyCode, std::uint64_t flags) {
        auto& recorder = view().controller().shortcutRecorder();
        view().recorderHasFocus = true;
        recorder.keyDown({kSpace, 0});
        recorder.flagsChanged(flags);
        recorder.keyDown({keyCode, flags});
    }
    void save(const std::string& name) {
        view().name = name;
        view().controller().save();
        desktop().mainLoop.runPending();
    }
    const WindowState& lastStateOf(std::string_view key) {
        return *Model::instance().windowStatesForAppBundleId(key)->back();
    }
    std::string eventName() { return desktop().analytics.events.back().name; }

    LaunchedProgram program_;
    WindowId editor_ = 0;
};

TEST_F(SavePopoverTest, SavesTheTrackedWindowUnderANameAndAShortcut) {
    EXPECT_EQ(view().popover().shownAt, (PopoverAnchor{{1500, 0, 24, 30}, {0, 30, 1600, 870}}));
    EXPECT_EQ(view().appOnlyTitle, "Only active for org.example.Editor");
    EXPECT_EQ(desktop().hotKeys.registeredCount(), 0U);
    record(kK, 0x80000);
    view().preferred = true;
    save(" Left half ");
    EXPECT_FALSE(isShown());
    EXPECT_EQ(desktop().workspace.frontmostApplication()->processIdentifier, kEditor);
    const auto& saved = lastStateOf("org.example.Editor");
    EXPECT_EQ(saved.windowStateName(), " Left half ");
    EXPECT_EQ(saved.originalWindowRect(), kFrame);
    EXPECT_EQ(saved.originalQuartzDisplayBounds(), (Rect{0, 0, 1600, 900}));
    EXPECT_TRUE(saved.prefersDisplay());
    EXPECT_FALSE(saved.isGlobal());
    EXPECT_EQ(eventName(), "SaveWindowState");
    EXPECT_TRUE(program_.press(kK));
}

TEST_F(SavePopoverTest, RefusesANameOfSpacesAndSavesForAll) {
    view().allApplications = true;
    view().controller().onActiveForAll();
    EXPECT_FALSE(view().appOnly);
    for (const auto* name : {"", " \t "}) {
        save(name);
        EXPECT_TRUE(isShown());
    }
    EXPECT_EQ(desktop().beeper.beeps, 2);
    save("Everywhere");
    EXPECT_EQ(lastStateOf("globals").appBundleId(), "org.example.Editor");
    EXPECT_EQ(lastStateOf("globals").keyEvent(), nullptr);
}

TEST_F(SavePopoverTest, LeavesAProgramWithoutIdentifierOnlyTheChoiceOfAll) {
    constexpr ProcessId kNobody = 44;
    desktop().windows.addApplication({kNobody, std::nullopt, "Nobody's"});
    const auto window = desktop().windows.openWindow({.pid = kNobody, .frame = kFrame});
    for (const auto opened : {window, editor_, window}) {
        desktop().windows.activateWindow(opened);
        desktop().mainLoop.runPending();
        EXPECT_EQ(view().appOnlyEnabled, opened == editor_);
        EXPECT_EQ(view().appOnly, opened == editor_);
        EXPECT_EQ(view().allApplications, opened == window);
    }
    save("Of nobody");
    EXPECT_EQ(lastStateOf("globals").appBundleId(), std::nullopt);
}

TEST_F(SavePopoverTest, TakesTheWindowAsItIsNowAndForgetsTheShortcut) {
    record(kK, 0x80000);
    view().name = "Kept";
    desktop().windows.setFrame(editor_, {5, 6, 700, 500});
    desktop().mainLoop.runPending();
    EXPECT_EQ(pending().originalWindowRect(), (Rect{5, 6, 700, 500}));
    EXPECT_EQ(pending().keyEvent(), nullptr);
    EXPECT_EQ(view().controller().shortcutRecorder().keyCode(), kK); // still shown
    desktop().displays.setDisplays({{.id = 1, .bounds = {0, 0, 800, 600}}});
    desktop().mainLoop.runPending();
    EXPECT_EQ(pending().originalQuartzDisplayBounds(), (Rect{0, 0, 1600, 900}));
    const auto& tracking = program_.delegate.statusItemController()->tracking();
    EXPECT_EQ(tracking.currentDisplay()->bounds(), (Rect{0, 0, 800, 600}));
    program_.open(kTerminal, "org.example.Terminal", kFrame);
    EXPECT_EQ(pending().appBundleId(), "org.example.Terminal");
    EXPECT_EQ(view().appOnlyTitle, "Only active for org.example.Terminal");
    EXPECT_EQ(desktop().hotKeys.registeredCount(), 0U);
    EXPECT_EQ(view().name, "Kept");
    desktop().windows.closeWindow(editor_);
    save("Terminal");
    EXPECT_EQ(lastStateOf("org.example.Terminal").windowStateName(), "Terminal");
}

TEST_F(SavePopoverTest, EscapeClosesAndTheHotKeysReturnWithTheNextApplication) {
    view().recorderHasFocus = true;
    view().controller().shortcutRecorder().keyDown({kSpace, 0});
    view().controller().closeRequested();
    EXPECT_FALSE(isShown() || view().controller().shortcutRecorder().isRecording());
    saveFromMenu();
    record(kK, 0x80000);
    EXPECT_FALSE(view().controller().keyDown({kK, 0}));
    EXPECT_TRUE(view().controller().keyDown({kEscape, 0}));
    EXPECT_FALSE(isShown());
    desktop().mainLoop.runPending();
    EXPECT_EQ(desktop().hotKeys.registeredCount(), 4U);

    saveFromMenu();
    EXPECT_EQ(view().controller().shortcutRecorder().keyCode(), -1);
    view().controller().cancel();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(eventName(), "CancelSaveWindowState");
}

TEST_F(SavePopoverTest, OnlyBeepsForAWindowThatCannotBePlaced) {
    view().controller().cancel();
    const auto fixed = desktop().windows.openWindow(
        {.pid = kEditor, .frame = {0, 0, 100, 100}, .isResizable = false});
    desktop().windows.activateWindow(fixed);
    desktop().mainLoop.runPending();
    saveFromMenu();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(desktop().beeper.beeps, 1);
}

TEST_F(SavePopoverTest, SaysWhatItKnowsAndHangsInTheCornerWhileNobodyKnowsWhereTheIconIs) {
    desktop().hotKeys.takeByAnotherProgram(kK, 0x800);
    record(kK, 0x80000);
    EXPECT_EQ(view().remark, "Another program uses this shortcut.");
    auto& recorder = view().controller().shortcutRecorder();
    recorder.keyDown({kSpace, 0});
    recorder.keyWithoutCode();
    EXPECT_EQ(view().remark, "This key cannot be a shortcut.");
    recorder.keyDown({38, 0});
    EXPECT_EQ(view().remark, "");
    program_.addState("Theirs", false, "org.example.Terminal", kK, kFrame);
    record(kK, 0x80000);
    view().allApplications = true;
    view().controller().onActiveForAll();
    EXPECT_EQ(view().remark, "Another program uses this shortcut.\nAlso used by “Theirs”.");
    view().allApplications = false;
    view().controller().onActiveForAppOnly();
    EXPECT_EQ(view().remark, "Another program uses this shortcut.");
    view().appOnlyToolTip.clear();
    view().controller().onActiveForAppOnly();
    desktop().mainLoop.advance(199ms);
    EXPECT_EQ(view().appOnlyToolTip, "");
    desktop().mainLoop.advance(1ms);
    EXPECT_NE(view().appOnlyToolTip, "");
    desktop().statusItem.place = std::nullopt;
    saveFromMenu();
    EXPECT_EQ(view().popover().shownAt, (PopoverAnchor{{1600, 30, 0, 0}, {0, 30, 1600, 870}}));
}

} // namespace
} // namespace panewright
