#include "app/app_delegate.h"

#include "support/launched_program.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class AppDelegateTest : public testing::Test {
protected:
    LaunchedProgram program_;
    MemoryDesktop& desktop_ = program_.desktop;
    AppDelegate& delegate_ = program_.delegate;
};

TEST_F(AppDelegateTest, StartsWithTheApplicationThatWasInFront) {
    program_.open(42, "org.example.Editor", {0, 0, 100, 100});
    delegate_.applicationWillFinishLaunching();
    // Launching makes the program itself the frontmost one.
    desktop_.windows.activateApplication(MemoryDesktop::kOwnPid);
    EXPECT_EQ(AppDelegate::instance(), nullptr);
    delegate_.applicationDidFinishLaunching();
    EXPECT_EQ(AppDelegate::instance(), &delegate_);
    const auto& controller = delegate_.statusItemController();
    EXPECT_EQ(controller->tracking().currentApplication()->processIdentifier, 42);
    controller->startStatusItem(); // once is enough
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 4U);
    EXPECT_EQ(desktop_.crashReporter.starts, 1);
    EXPECT_EQ(desktop_.userDefaults.objectForKey("NSApplicationCrashOnExceptions"),
              DefaultsValue(true));
}

TEST_F(AppDelegateTest, OpensThePreferencesASecondLaterWithoutPermission) {
    desktop_.accessibility.setTrusted(false);
    program_.launch();
    EXPECT_EQ(desktop_.accessibility.promptsShown(), 1);
    desktop_.mainLoop.advance(999ms);
    EXPECT_THAT(desktop_.workspace.launched, IsEmpty());
    desktop_.mainLoop.advance(1ms);
    EXPECT_THAT(desktop_.workspace.launched, ElementsAre("/Applications/System Preferences.app"));
}

TEST_F(AppDelegateTest, AnswersTheActionsOfItsMenu) {
    program_.launch();
    const auto& controller = delegate_.statusItemController();
    for (const bool on : {true, false}) {
        delegate_.runAtStartup();
        EXPECT_EQ(controller->startupItemState(), on);
        EXPECT_EQ(controller->launchAgentStartupItem().isInstalled(), on);
    }
    Model::instance().defaultWindowStates()->clear();
    delegate_.restoreWindowStates();
    EXPECT_EQ(Model::instance().defaultWindowStates()->size(), 4U);
    delegate_.sendFeedback();
    delegate_.openFAQ();
    EXPECT_THAT(desktop_.workspace.openedUrls,
                ElementsAre("http://quillfen.com/panewright/disqus.html",
                            "http://quillfen.com/panewright#faq"));
    EXPECT_EQ(desktop_.analytics.events.back().name, "OpenFAQ");
    program_.open(42, "org.example.Editor", {0, 0, 100, 100});
    desktop_.softwareUpdater.willShow();
    EXPECT_EQ(desktop_.windows.frontmost()->processIdentifier, MemoryDesktop::kOwnPid);
    delegate_.quit();
    EXPECT_EQ(desktop_.mainLoop.run(), 0);
}

} // namespace
} // namespace panewright
