#include "menubar/focus_tracking.h"

#include "desktop/memory/memory_desktop.h"
#include "support/print_geometry.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

constexpr ProcessId kEditor = 42;
constexpr ProcessId kTerminal = 43;

class FocusTrackingTest : public testing::Test {
protected:
    FocusTrackingTest() {
        desktop_.displays.setDisplays(
            {{.id = 1, .bounds = {0, 0, 1440, 900}}, {.id = 2, .bounds = {1440, 0, 1920, 1080}}});
        desktop_.windows.addApplication({kEditor, "org.example.Editor", "Editor"});
        desktop_.windows.addApplication({kTerminal, "org.example.Terminal", "Terminal"});
        window_ = desktop_.windows.openWindow({.pid = kEditor, .frame = {100, 50, 800, 600}});
        desktop_.windows.activateWindow(window_);
        tracking_->setWindowChangedHandler([this] { ++changes_; });
        tracking_->updateApplicationTracking();
    }

    void expectTracked(ProcessId pid, const Rect& frame, DisplayId display) {
        desktop_.mainLoop.runPending();
        EXPECT_EQ(tracking_->currentApplication()->processIdentifier, pid);
        EXPECT_EQ(tracking_->windowRect(), frame);
        EXPECT_EQ(tracking_->currentDisplay()->displayId(), display);
    }

    MemoryDesktop desktop_;
    MemoryWindowId window_ = 0;
    std::shared_ptr<FocusTracking> tracking_ = FocusTracking::create(
        {desktop_.accessibility, desktop_.displays, desktop_.workspace, desktop_.program});
    int changes_ = 0;
};

TEST_F(FocusTrackingTest, FollowsTheWindowAndItsDisplay) {
    expectTracked(kEditor, {100, 50, 800, 600}, 1);
    desktop_.windows.setFrame(window_, {1500, 50, 700, 600});
    expectTracked(kEditor, {1500, 50, 700, 600}, 2);
    EXPECT_EQ(changes_, 2); // moved and resized
}

TEST_F(FocusTrackingTest, FollowsTheApplicationsMainWindow) {
    const auto other = desktop_.windows.openWindow({.pid = kEditor, .frame = {1, 2, 3, 4}});
    desktop_.windows.activateWindow(other);
    expectTracked(kEditor, {1, 2, 3, 4}, 1);
    desktop_.windows.setFrame(window_, {9, 9, 9, 9}); // no longer the tracked one
    expectTracked(kEditor, {1, 2, 3, 4}, 1);
}

TEST_F(FocusTrackingTest, StaysWithTheApplicationThatWasInFrontOfThisProgram) {
    desktop_.windows.activateApplication(MemoryDesktop::kOwnPid);
    tracking_->updateApplicationTracking();
    expectTracked(kEditor, {100, 50, 800, 600}, 1);
    desktop_.windows.setFrame(window_, {0, 0, 10, 10});
    expectTracked(kEditor, {0, 0, 10, 10}, 1);
}

TEST_F(FocusTrackingTest, KeepsTheLastFrameWhenAnApplicationHasNoWindow) {
    desktop_.windows.activateApplication(kTerminal);
    tracking_->updateApplicationTracking();
    expectTracked(kTerminal, {100, 50, 800, 600}, 1);
    EXPECT_EQ(tracking_->windowElement(), nullptr);
    desktop_.windows.setFrame(window_, {9, 9, 9, 9}); // its observers are gone
    expectTracked(kTerminal, {100, 50, 800, 600}, 1);
}

TEST_F(FocusTrackingTest, HearsNothingMoreOnceItIsGone) {
    desktop_.windows.setFrame(window_, {0, 0, 10, 10});
    tracking_.reset();
    desktop_.mainLoop.runPending();
    EXPECT_EQ(changes_, 0);
}

} // namespace
} // namespace panewright
