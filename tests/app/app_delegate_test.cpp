#include "support/launched_program.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;

constexpr ProcessId kEditor = 42;

TEST(AppDelegate, StartsWithTheApplicationThatWasInFront) {
    LaunchedProgram program;
    program.open(kEditor, "org.example.Editor", {100, 50, 800, 600});
    program.delegate.applicationWillFinishLaunching();
    // Launching makes the program itself the frontmost one.
    program.desktop.windows.activateApplication(MemoryDesktop::kOwnPid);
    EXPECT_EQ(AppDelegate::instance(), nullptr);
    program.delegate.applicationDidFinishLaunching();
    EXPECT_EQ(AppDelegate::instance(), &program.delegate);
    auto& controller = *program.delegate.statusItemController();
    EXPECT_EQ(controller.tracking().currentApplication()->processIdentifier, kEditor);
    controller.startStatusItem(); // once is enough
    EXPECT_EQ(program.desktop.hotKeys.registeredCount(), 4U);
    EXPECT_EQ(program.desktop.crashReporter.starts, 1);
    program.delegate.quit();
    EXPECT_EQ(program.desktop.mainLoop.run(), 0);
}

TEST(AppDelegate, OpensThePreferencesASecondLaterWithoutPermissionAndTracksWhenItComes) {
    LaunchedProgram program;
    program.desktop.windows.setPermitted(false);
    program.open(kEditor, "org.example.Editor", {100, 50, 800, 600});
    program.launch();
    EXPECT_EQ(program.desktop.windows.promptsShown(), 1);
    program.desktop.mainLoop.advance(999ms);
    EXPECT_THAT(program.desktop.workspace.launched, testing::IsEmpty());
    program.desktop.mainLoop.advance(1ms);
    EXPECT_THAT(program.desktop.workspace.launched, testing::SizeIs(1));
    program.desktop.windows.activateApplication(MemoryDesktop::kOwnPid);
    const auto& tracking = program.delegate.statusItemController()->tracking();
    EXPECT_EQ(tracking.windowElement(), nullptr);
    CarbonEventManager::sharedManager().removeAllEvents();
    program.desktop.windows.setPermitted(true);
    program.desktop.mainLoop.runPending();
    EXPECT_EQ(tracking.windowRect(), (Rect{100, 50, 800, 600}));
    EXPECT_EQ(program.desktop.hotKeys.registeredCount(), 4U);
}

} // namespace
} // namespace panewright
