#include "support/captured_log.h"
#include "support/launched_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;

constexpr std::uint16_t kN = 45, kDelete = 51, kSpace = 49;
constexpr const char* kKeyCodeKey = "MoveToNextWindowKeyEventKeyCode";

/// The program with its settings window opened from the menu.
class SettingsTest : public testing::Test {
protected:
    SettingsTest() {
        program_.desktop.displays.setDisplays({{.id = 1, .bounds = {0, 0, 1600, 900}}});
        window_ = program_.open(42, "org.example.Editor", {0, 0, 100, 100});
        program_.launch();
        open();
    }
    void open() {
        program_.desktop.statusItem.click();
        EXPECT_TRUE(program_.desktop.menuView.choose("Settings…"));
    }
    MemorySettingsView& view() { return *program_.desktop.views.settings; }
    bool isSet(const char* key) {
        return program_.desktop.userDefaults.objectForKey(key).has_value();
    }

    LaunchedProgram program_;
    WindowId window_;
};

TEST_F(SettingsTest, RecordsTheKeyThatMovesToTheNextDisplay) {
    auto& recorder = view().controller().shortcutRecorder();
    recorder.keyDown({kSpace, 0});
    recorder.keyDown({kN, 0}); // refused: it would be lost to every program
    EXPECT_FALSE(isSet(kKeyCodeKey));
    program_.desktop.hotKeys.takeByAnotherProgram(kN, 0x800);
    recorder.keyDown({kSpace, 0});
    recorder.flagsChanged(0x80000);
    recorder.keyDown({kN, 0x80000});
    EXPECT_EQ(program_.desktop.userDefaults.objectForKey(kKeyCodeKey), DefaultsValue(45L));
    EXPECT_EQ(program_.desktop.hotKeys.registeredCount(), 5U);
    EXPECT_EQ(view().remark, "Another program uses this shortcut.");
    open();
    const auto& menu = program_.delegate.statusItemController()->menu();
    EXPECT_TRUE(menu.fixedItems().moveToNextDisplayItem->shortcut.isTaken);
    recorder.keyDown({kDelete, 0});
    EXPECT_FALSE(isSet(kKeyCodeKey));
    EXPECT_EQ(program_.desktop.hotKeys.registeredCount(), 4U);
    EXPECT_EQ(view().remark, "");
}

TEST_F(SettingsTest, OpensWhenTheProgramIsStartedAgainAndOffersToSaveWhileNoIconIsShown) {
    CapturedLog log;
    EXPECT_FALSE(view().offersSaving);
    program_.desktop.statusItem.setHasBar(false);
    EXPECT_TRUE(view().offersSaving);
    program_.desktop.mainLoop.advance(10s);
    EXPECT_THAT(log.take(), testing::SizeIs(1));
    program_.desktop.reopenRequests.reopen();
    EXPECT_EQ(view().timesShown, 2);
    view().controller().saveWindowPosition();
    EXPECT_TRUE(program_.desktop.views.save->popover().isShown());
    program_.desktop.statusItem.setHasBar(true);
    EXPECT_FALSE(view().offersSaving);
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
    const auto& agent = program_.delegate.statusItemController()->launchAgentStartupItem();
    for (const bool on : {true, false}) {
        view().startsAtLogin = on;
        settings.startupItem();
        EXPECT_EQ(agent.isInstalled(), on);
    }
    Model::instance().defaultWindowStates()->clear();
    settings.restoreDefaultWindowStates();
    EXPECT_EQ(Model::instance().defaultWindowStates()->size(), 4U);
    program_.desktop.windows.activateApplication(MemoryDesktop::kOwnPid);
    program_.desktop.windows.activateApplication(42); // which installs the hot keys
    program_.desktop.mainLoop.runPending();
    EXPECT_TRUE(program_.press(18));
    EXPECT_EQ(program_.frame(window_), (Rect{0, 0, 1600, 900}));
    settings.website();
    EXPECT_THAT(program_.desktop.workspace.openedUrls,
                testing::ElementsAre("http://quillfen.com/panewright"));
    EXPECT_EQ(program_.desktop.analytics.events.back().name, "PreferencesWebsite");
}

TEST_F(SettingsTest, OpensTheInstalledHelpWhereThereIsNoSite) {
    auto& settings = view().controller();
    program_.desktop.program.site = "";
    program_.desktop.text.userLanguage = "de";
    settings.faq();
    EXPECT_EQ(program_.desktop.beeper.beeps, 1);
    program_.desktop.program.helpPages["en"] = "/help/en";
    settings.faq();
    program_.desktop.program.helpPages["de"] = "/help/de";
    settings.faq();
    EXPECT_THAT(program_.desktop.workspace.openedFiles,
                testing::ElementsAre("/help/en", "/help/de"));
    EXPECT_EQ(program_.desktop.beeper.beeps, 1);
    EXPECT_EQ(program_.desktop.analytics.events.back().name, "PreferencesFAQ");
}

} // namespace
} // namespace panewright
