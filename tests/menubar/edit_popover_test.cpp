#include "support/program_fixture.h"

namespace panewright {
namespace {

constexpr Rect kFrame{100, 50, 800, 600}, kSaved{1, 2, 300, 200};
constexpr std::uint16_t kJ = 38, kK = 40, kU = 32, k1 = 18;

/// The program with a terminal's and an editor's window, the latter in front, and a state of the
/// editor on Option-K, which is being edited.
class EditPopoverTest : public ProgramFixture {
protected:
    EditPopoverTest() {
        desktop_.keyboardLayout.setKeys({{kJ, "j"}, {kK, "k"}, {k1, "1"}});
        openProgram(kTerminal, kTerminalId, kFrame);
        editor_ = openProgram(kEditor, kEditorId, kFrame);
        launch();
        mine_ = addState("Mine", false, kEditorId, kK, kSaved);
        edit("Mine");
    }
    void edit(const std::string& name) { choose(name, kOption); }
    MemoryEditShortcutView& view() { return *desktop_.views.edit; }
    EditShortcutViewController& popover() { return view().controller(); }
    bool isShown() { return view().popover().isShown(); }
    void record(std::uint16_t keyCode) {
        view().recorderHasFocus = true;
        popover().shortcutRecorder().keyDown({kSpace, 0});
        EXPECT_EQ(popover().windowState()->keyEvent(), nullptr) << "until the recording ends";
        popover().shortcutRecorder().flagsChanged(kOption);
        popover().shortcutRecorder().keyDown({keyCode, kOption});
    }

    WindowId editor_ = 0;
    std::shared_ptr<WindowState> mine_;
};

TEST_F(EditPopoverTest, SavesTheNameAndOnRequestTheFrameThatTheWindowHadAtTheOpening) {
    const ImagePtr picture = std::make_shared<MemoryImage>(Size{1, 1});
    const ImagePtr both = std::make_shared<MemoryImage>(Size{2, 2});
    for (const bool replaces : {false, true}) {
        mine_->setWindowStateImage(picture);
        mine_->setAppIconAndWindowStateImage(both);
        EXPECT_EQ(desktop_.hotKeys.registeredCount(), 0U);
        EXPECT_EQ(view().name, "Mine");
        EXPECT_EQ(popover().shortcutRecorder().keyCode(), kK);
        view().updates |= replaces;
        desktop_.windows.setFrame(editor_, {9, 9, 99, 99});
        view().name = " Yours ";
        popover().save();
        desktop_.mainLoop.runPending();
        EXPECT_EQ(mine_->windowStateName(), " Yours ");
        EXPECT_EQ(mine_->originalWindowRect(), replaces ? kFrame : kSaved);
        EXPECT_EQ(mine_->windowStateImage(), replaces ? nullptr : picture);
        EXPECT_EQ(mine_->appIconAndWindowStateImage(), both);
        EXPECT_FALSE(isShown() || popover().windowState());
        EXPECT_EQ(frontmost(), kEditor);
        mine_->setWindowStateName("Mine");
        desktop_.windows.setFrame(editor_, kFrame);
        desktop_.mainLoop.runPending();
        edit("Mine");
        EXPECT_EQ(view().updates, replaces) << "stays as it was left";
    }
}

TEST_F(EditPopoverTest, KeepsARecordedShortcutWhenItIsCancelledOrTheNameIsRefused) {
    record(kJ);
    view().name = " \t";
    popover().save();
    EXPECT_TRUE(isShown());
    EXPECT_EQ(desktop_.beeper.beeps, 1);
    view().name = "Forgotten";
    popover().cancel();
    EXPECT_TRUE(press(kJ));
    EXPECT_EQ(frameOf(editor_), kSaved);
}

TEST_F(EditPopoverTest, LeavesTheHotKeysToTheNextApplicationAndOnlyClosesOnEscape) {
    desktop_.windows.activateApplication(kTerminal);
    desktop_.mainLoop.runPending();
    EXPECT_TRUE(isShown());
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 4U); // the built-in ones
    desktop_.windows.activateApplication(kEditor);
    desktop_.mainLoop.runPending();
    edit("Mine");
    EXPECT_TRUE(popover().keyDown({kEscape, 0}));
    EXPECT_FALSE(isShown());
}

TEST_F(EditPopoverTest, DeletesAfterAQuestionOrAtOnceWithShift) {
    popover().deleteWindowState(0);
    EXPECT_EQ(desktop_.alerts.open, (Alert{"Are you sure you want to delete this window state?",
                                           "",
                                           AlertStyle::kCritical,
                                           {"Yes", "No"}}));
    EXPECT_EQ(desktop_.beeper.beeps, 1);
    desktop_.alerts.press(1);
    EXPECT_TRUE(isShown());
    popover().deleteWindowState(0);
    desktop_.alerts.press(0);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(Model::instance().keyOfWindowState(mine_), std::nullopt);
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 4U);

    edit("Full Screen");
    popover().deleteWindowState(kShift);
    EXPECT_FALSE(isShown() || desktop_.alerts.open);
}

TEST_F(EditPopoverTest, ClosesWithTheStateThatLeavesTheStoreAndTheQuestionToo) {
    popover().deleteWindowState(0);
    addState("Other", false, kEditorId, kJ, kSaved);
    choose("Other", kOption | kShift);
    choose("Restore Built-in States");
    EXPECT_TRUE(isShown() && desktop_.alerts.open) << "neither is the one";
    choose("Mine", kOption | kShift);
    EXPECT_FALSE(isShown() || desktop_.alerts.open);
    edit("Full Screen");
    Model::instance().restoreDefaultWindowStates();
    EXPECT_FALSE(isShown());
    controller().editWindowState(mine_);
    EXPECT_FALSE(isShown()) << "of a row that is left";
}

TEST_F(EditPopoverTest, IsOpenAloneAndCancelsTheOtherPopover) {
    record(kJ);
    popover().deleteWindowState(0);
    choose("Save Current Window…");
    EXPECT_FALSE(isShown() || desktop_.alerts.open);
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 0U);
    edit("Mine");
    EXPECT_TRUE(isShown());
    EXPECT_FALSE(desktop_.views.save->popover().isShown());
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 0U);
    EXPECT_EQ(frontmost(), MemoryDesktop::kOwnPid);
    edit("Full Screen");
    EXPECT_TRUE(isShown());
    popover().cancel();
    EXPECT_EQ(frontmost(), kEditor);
}

TEST_F(EditPopoverTest, SaysWhereTheStateAppliesAndWhoElseOfOursHasItsShortcutThere) {
    addState("Global", true, kEditorId, kJ, kSaved);
    addState("Theirs", false, kTerminalId, kJ, kSaved);
    addState("Large", false, kEditorId, 19, kSaved);
    Model::instance().setMoveToNextWindowKeyEvent(
        CarbonKeyEvent::carbonEventWithKeyCode(kK, kOption));
    const struct {
        const char* state;
        const char* context;
        std::uint16_t recorded;
        const char* remark;
    } cases[] = {
        {"Mine", "Only active for org.example.Editor", kJ, "Also used by “Global”."},
        {"Mine", "Only active for org.example.Editor", kK, "Also used by “Move to Next Display”."},
        {"Mine", "Only active for org.example.Editor", kU, ""},
        {"Global", "Active for all applications", kJ, "Also used by “Mine”, “Theirs”."},
        {"Full Screen", "Built in, active for all applications", 19,
         "Also used by “Centered Large”, “Large”."},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.state);
        mine_->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(kJ, kOption));
        edit(each.state);
        EXPECT_EQ(view().context, each.context);
        EXPECT_EQ(view().updateEnabled, each.state != std::string("Full Screen"));
        record(each.recorded);
        EXPECT_EQ(view().remark, each.remark);
        popover().cancel();
    }
}

} // namespace
} // namespace panewright
