#include "support/captured_log.h"
#include "support/program_fixture.h"

namespace panewright {
namespace {

using namespace std::chrono_literals;

constexpr std::uint16_t kN = 45;
constexpr const char* kKeyCodeKey = "MoveToNextWindowKeyEventKeyCode";

/// The program with its settings window opened from the menu.
class SettingsTest : public ProgramFixture {
protected:
    SettingsTest() {
        window_ = openProgram(kEditor, kEditorId, {0, 0, 100, 100});
        launch();
        open();
    }
    void open() { choose("Settings…"); }
    MemorySettingsView& view() { return *desktop_.views.settings; }
    bool isSet(const char* key) { return desktop_.userDefaults.objectForKey(key).has_value(); }

    WindowId window_;
};

TEST_F(SettingsTest, RecordsTheKeyThatMovesToTheNextDisplay) {
    auto& recorder = view().controller().shortcutRecorder();
    recorder.keyDown({kSpace, 0});
    recorder.keyDown({kN, 0}); // refused: it would be lost to every program
    EXPECT_FALSE(isSet(kKeyCodeKey));
    desktop_.hotKeys.takeByAnotherProgram(kN, 0x800);
    record(recorder, kN);
    EXPECT_EQ(desktop_.userDefaults.objectForKey(kKeyCodeKey), DefaultsValue(45L));
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 5U);
    EXPECT_EQ(view().remark, "Another program uses this shortcut.");
    addState("Mine", false, kEditorId, kN, kScreen);
    open();
    EXPECT_EQ(view().remark, "Another program uses this shortcut.\nAlso used by “Mine”.");
    const auto& menu = controller().menu();
    EXPECT_TRUE(menu.fixedItems().moveToNextDisplayItem->shortcut.isTaken);
    recorder.keyDown({kDelete, 0});
    EXPECT_FALSE(isSet(kKeyCodeKey));
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 5U) << "the state has its key back";
    EXPECT_EQ(view().remark, "");
}

TEST_F(SettingsTest, OpensWhenTheProgramIsStartedAgainAndOffersTheMenuWhileNoIconIsShown) {
    CapturedLog log;
    EXPECT_FALSE(view().offersMenu);
    desktop_.statusItem.setHasBar(false);
    EXPECT_TRUE(view().offersMenu);
    desktop_.mainLoop.advance(10s);
    EXPECT_THAT(log.take(), testing::SizeIs(1));
    desktop_.reopenRequests.reopen();
    EXPECT_EQ(view().timesShown, 2);
    view().controller().openMenu();
    EXPECT_TRUE(desktop_.menuView.isOpen());
    view().controller().saveWindowPosition();
    EXPECT_TRUE(desktop_.views.save->popover().isShown());
    desktop_.statusItem.setHasBar(true);
    EXPECT_FALSE(view().offersMenu);
}

TEST_F(SettingsTest, KeepsItsOneWindowAndTellsWhatIsDoneInIt) {
    auto* const first = &view();
    open();
    EXPECT_EQ(&view(), first);
    EXPECT_EQ(view().timesShown, 2);
    auto& settings = view().controller();
    view().allowsMove = true;
    settings.allowStateShortuctMoveWindow();
    EXPECT_TRUE(Model::instance().allowWindowStateShortcutsToMoveWindowNextDisplay());
    const auto& agent = controller().launchAgentStartupItem();
    for (const bool on : {true, false}) {
        view().startsAtLogin = on;
        settings.startupItem();
        EXPECT_EQ(agent.isInstalled(), on);
    }
    Model::instance().defaultWindowStates()->clear();
    settings.restoreDefaultWindowStates();
    EXPECT_EQ(Model::instance().defaultWindowStates()->size(), 4U);
    desktop_.windows.activateApplication(MemoryDesktop::kOwnPid);
    desktop_.windows.activateApplication(kEditor); // which installs the hot keys
    desktop_.mainLoop.runPending();
    EXPECT_TRUE(press(18));
    EXPECT_EQ(frameOf(window_), kScreen);
    settings.website();
    EXPECT_THAT(desktop_.workspace.openedUrls,
                testing::ElementsAre("http://quillfen.com/panewright"));
}

TEST_F(SettingsTest, OpensTheInstalledHelpWhereThereIsNoSite) {
    auto& settings = view().controller();
    desktop_.program.site = "";
    desktop_.text.userLanguage = "de";
    settings.faq();
    EXPECT_EQ(desktop_.beeper.beeps, 1);
    desktop_.program.helpPages["en"] = "/help/en";
    settings.faq();
    desktop_.program.helpPages["de"] = "/help/de";
    settings.faq();
    EXPECT_THAT(desktop_.workspace.openedFiles, testing::ElementsAre("/help/en", "/help/de"));
    EXPECT_EQ(desktop_.beeper.beeps, 1);
}

} // namespace
} // namespace panewright
