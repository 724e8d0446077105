#include "support/program_fixture.h"

namespace panewright {
namespace {

using namespace std::chrono_literals;

class AppDelegateTest : public ProgramFixture {};

TEST_F(AppDelegateTest, StartsWithTheApplicationThatWasInFront) {
    openProgram(kEditor, kEditorId, {100, 50, 800, 600});
    EXPECT_EQ(delegate_.applicationWillFinishLaunching(), AfterMoving::kGoOn);
    // Launching makes the program itself the frontmost one.
    desktop_.windows.activateApplication(MemoryDesktop::kOwnPid);
    EXPECT_EQ(AppDelegate::instance(), nullptr);
    delegate_.applicationDidFinishLaunching();
    EXPECT_EQ(AppDelegate::instance(), &delegate_);
    EXPECT_EQ(controller().tracking().currentApplication()->processIdentifier, kEditor);
    controller().startStatusItem(); // once is enough
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 4U);
    EXPECT_EQ(desktop_.crashReporter.starts, 1);
    delegate_.quit();
    EXPECT_EQ(desktop_.mainLoop.run(), 0);
}

TEST_F(AppDelegateTest, OpensThePreferencesASecondLaterWithoutPermissionAndTracksWhenItComes) {
    desktop_.windows.setPermitted(false);
    openProgram(kEditor, kEditorId, {100, 50, 800, 600});
    launch();
    EXPECT_EQ(desktop_.windows.promptsShown(), 1);
    desktop_.mainLoop.advance(999ms);
    EXPECT_THAT(desktop_.workspace.launched, testing::IsEmpty());
    desktop_.mainLoop.advance(1ms);
    EXPECT_THAT(desktop_.workspace.launched, testing::SizeIs(1));
    desktop_.windows.activateApplication(MemoryDesktop::kOwnPid);
    const auto& tracking = controller().tracking();
    EXPECT_EQ(tracking.windowElement(), nullptr);
    CarbonEventManager::sharedManager().removeAllEvents();
    desktop_.windows.setPermitted(true);
    desktop_.mainLoop.runPending();
    EXPECT_EQ(tracking.windowRect(), (Rect{100, 50, 800, 600}));
    EXPECT_EQ(desktop_.hotKeys.registeredCount(), 4U);
}

} // namespace
} // namespace panewright
