#include "app/app_delegate.h"

#include "services/sound_helper.h"
#include "support/launched_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class AppDelegateTest : public testing::Test {
protected:
    MemoryDesktop& desktop() { return program_.desktop; }
    AppDelegate& delegate() { return program_.delegate; }

    LaunchedProgram program_;
};

TEST_F(AppDelegateTest, StartsWithTheApplicationThatWasInFront) {
    program_.open(42, "org.example.Editor", {0, 0, 100, 100});
    delegate().applicationWillFinishLaunching();
    // Launching makes the program itself the frontmost one.
    desktop().windows.activateApplication(MemoryDesktop::kOwnPid);
    EXPECT_EQ(AppDelegate::instance(), nullptr);
    delegate().applicationDidFinishLaunching();
    EXPECT_EQ(AppDelegate::instance(), &delegate());
    const auto& tracking = delegate().statusItemController()->tracking();
    EXPECT_EQ(tracking.currentApplication()->processIdentifier, 42);
    EXPECT_EQ(desktop().hotKeys.registeredCount(), 4U);
    EXPECT_EQ(desktop().crashReporter.starts, 1);
    EXPECT_EQ(desktop().userDefaults.objectForKey("NSApplicationCrashOnExceptions"),
              DefaultsValue(true));
    delegate().statusItemController()->startStatusItem(); // once is enough
    EXPECT_EQ(desktop().hotKeys.registeredCount(), 4U);
}

TEST_F(AppDelegateTest, OpensThePreferencesASecondLaterWithoutPermission) {
    desktop().accessibility.setTrusted(false);
    program_.launch();
    EXPECT_EQ(desktop().accessibility.promptsShown(), 1);
    desktop().mainLoop.advance(999ms);
    EXPECT_THAT(desktop().workspace.launched, IsEmpty());
    desktop().mainLoop.advance(1ms);
    EXPECT_THAT(desktop().workspace.launched, ElementsAre("/Applications/System Preferences.app"));
}

TEST_F(AppDelegateTest, TurnsStartAtLoginOnAndOff) {
    program_.launch();
    const auto& controller = delegate().statusItemController();
    for (const bool on : {true, false}) {
        delegate().runAtStartup();
        EXPECT_EQ(controller->startupItemState(), on);
        EXPECT_EQ(controller->launchAgentStartupItem().isInstalled(), on);
    }
}

TEST_F(AppDelegateTest, RestoresTheBuiltInStates) {
    program_.launch();
    Model::instance().defaultWindowStates()->clear();
    delegate().restoreWindowStates();
    EXPECT_EQ(Model::instance().defaultWindowStates()->size(), 4U);
}

TEST_F(AppDelegateTest, AnswersTheOtherActions) {
    program_.launch();
    delegate().sendFeedback();
    delegate().openFAQ();
    EXPECT_THAT(desktop().workspace.openedUrls,
                ElementsAre("http://quillfen.com/panewright/disqus.html",
                            "http://quillfen.com/panewright#faq"));
    EXPECT_EQ(desktop().analytics.events.back().name, "OpenFAQ");
    delegate().checkForUpdates();
    delegate().checkForUpdatesInBackground();
    EXPECT_EQ(desktop().softwareUpdater.checks, 1);
    EXPECT_EQ(desktop().softwareUpdater.backgroundChecks, 1);
    program_.open(42, "org.example.Editor", {0, 0, 100, 100});
    desktop().softwareUpdater.willShow();
    EXPECT_EQ(desktop().windows.frontmost()->processIdentifier, MemoryDesktop::kOwnPid);
    delegate().quit();
    EXPECT_EQ(desktop().mainLoop.run(), 0);
}

TEST(SoundHelper, PlaysTheSystemsSounds) {
    MemorySounds sounds;
    const SoundHelper helper(sounds);
    helper.glass();
    helper.popAtVolume(0.5F);
    helper.playSoundNamed("Submarine");
    EXPECT_THAT(sounds.played, ElementsAre(std::pair("Glass", 1.0F), std::pair("Pop", 0.5F),
                                           std::pair("Submarine", 1.0F)));
}

} // namespace
} // namespace panewright
