#include "geometry/window_placement.h"

#include "accessibility/accessibility_helper.h"
#include "desktop/memory/memory_desktop.h"
#include "support/print_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace panewright {
namespace {

constexpr ProcessId kEditor = 42;
constexpr Rect kMain{0, 0, 1440, 900};
constexpr Rect kRight{1440, 0, 1920, 1080};
constexpr Rect kEnd{3360, 0, 1440, 900}; // as large as the main one
constexpr DisplayId kMainId = 1;
constexpr DisplayId kRightId = 2;
constexpr DisplayId kEndId = 3;

class WindowPlacementTest : public testing::Test {
protected:
    WindowPlacementTest() {
        desktop_.displays.setDisplays({{.id = kMainId, .bounds = kMain},
                                       {.id = kRightId, .bounds = kRight},
                                       {.id = kEndId, .bounds = kEnd}});
        desktop_.windows.addApplication({kEditor, "org.example.Editor", "Editor"});
        window_ = desktop_.windows.openWindow({.pid = kEditor, .frame = {1, 2, 3, 4}});
        element_ = AccessibilityHelper(desktop_.accessibility)
                       .focusedWindowForApplicationElementFromPid(kEditor);
    }

    static std::shared_ptr<WindowState> userState(const Rect& window, const Rect& display) {
        auto state = WindowState::init();
        state->setOriginalWindowRect(window);
        state->setOriginalQuartzDisplayBounds(display);
        return state;
    }
    static std::shared_ptr<WindowState> builtIn(Size scale) {
        auto state = WindowState::windowStateIsDefault(true, false);
        state->setWindowScale(scale);
        return state;
    }
    std::optional<QuartzDisplay> display(DisplayId id) const {
        return QuartzDisplay(desktop_.displays, id);
    }
    Rect applied(const WindowState& state, const std::optional<QuartzDisplay>& on) {
        EXPECT_TRUE(applyToWindowElement(state, element_, on, desktop_.displays));
        return desktop_.windows.find(window_)->frame;
    }
    Rect computed(const WindowState& state, const std::optional<QuartzDisplay>& on) {
        return getSizePositionForWindowElement(state, element_, on);
    }

    MemoryDesktop desktop_;
    MemoryWindowId window_ = 0;
    std::shared_ptr<AccessibilityElement> element_;
};

TEST_F(WindowPlacementTest, ScalesAUserStateToTheDisplay) {
    const struct {
        const char* what;
        Rect saved;
        Rect savedOn;
        DisplayId on;
        Rect frame;
    } cases[] = {
        {"where it was saved", {100, 50, 800, 600}, kMain, kMainId, {100, 50, 800, 600}},
        {"fractions stay", {100.5, 50.25, 800.1, 600}, kMain, kMainId, {100.5, 50.25, 800.1, 600}},
        {"a larger display",
         {100, 50, 800, 600},
         kMain,
         kRightId,
         {1573, 37, 800.0 / 1440 * 1920, 743}},
        {"an equal one elsewhere", {100, 50, 800, 600}, kMain, kEndId, {3460, 27, 800, 623}},
        {"a smaller display", {1440, 0, 960, 540}, kRight, kMainId, {0, -23, 720, 473}},
        {"halves round away from zero",
         {1, -1, 2, 2},
         {0, 0, 2, 2},
         kMainId,
         {720, -473, 1440, 923}},
        {"a half below zero", {-0.5, 0, 1, 1}, {0, 0, 1440, 100}, kMainId, {-1, -23, 1, 32}},
    };
    for (const auto& [what, saved, savedOn, on, frame] : cases) {
        const auto state = userState(saved, savedOn);
        EXPECT_EQ(computed(*state, display(on)), frame) << what;
        EXPECT_EQ(applied(*state, display(on)), frame) << what;
        EXPECT_EQ(getDefaultSizePositionForWindowElement(*state, element_, display(on)), frame);
    }
}

TEST_F(WindowPlacementTest, CentresABuiltInStateOnTheDisplay) {
    const struct {
        Size scale;
        DisplayId on;
        Rect frame;
    } cases[] = {
        {{1, 1}, kRightId, {1440, 0, 1920, 1080}},
        {{0.9, 0.9}, kMainId, {72, 45, 1296, 810}},
        {{0.8, 0.8}, kRightId, {1632, 108, 1536, 864}},
        {{0.65, 0.65}, kRightId, {1776, 189, 1248, 702}},
        {{1, 0.5}, kRightId, {1440, 270, 1920, 540}},
        {{1.2, 3}, kRightId, {1440, 0, 1920, 1080}},
    };
    for (const auto& [scale, on, frame] : cases) {
        const auto state = builtIn(scale);
        EXPECT_EQ(applied(*state, display(on)), frame) << scale.width;
        EXPECT_EQ(computed(*state, display(on)), frame) << scale.width;
    }
    EXPECT_EQ(computed(*builtIn({0, 0}), display(kMainId)), (Rect{720, 450, 0, 0}));
}

TEST_F(WindowPlacementTest, RoundsTheCentredOriginUpOnlyWhenComputing) {
    desktop_.displays.setDisplays({{.id = kMainId, .bounds = {0, 0, 1366, 768}}});
    const auto large = builtIn({0.9, 0.9});
    const Rect frame = applied(*large, display(kMainId));
    EXPECT_DOUBLE_EQ(frame.x, 68.3);
    EXPECT_DOUBLE_EQ(frame.y, 38.4);
    EXPECT_EQ(computed(*large, display(kMainId)), (Rect{69, 39, 1366 * 0.9, 768 * 0.9}));
    // The fraction that 32 bits cannot hold is gone before rounding up: 100.00000001 is 100.
    EXPECT_EQ(computed(*builtIn({(1366 - 200.00000002) / 1366, 1}), display(kMainId)).x, 100);
}

TEST_F(WindowPlacementTest, PrefersTheFirstDisplayOfTheSavedSizeOnlyWhenApplying) {
    const auto state = userState({3460, 50, 800, 600}, kEnd);
    state->setPrefersDisplay(true);
    EXPECT_EQ(applied(*state, display(kRightId)), (Rect{100, 27, 800, 623}));
    EXPECT_EQ(computed(*state, display(kRightId)), (Rect{1573, 37, 800.0 / 1440 * 1920, 743}));
    const auto gone = userState({0, 0, 320, 240}, {0, 0, 640, 480});
    gone->setPrefersDisplay(true);
    EXPECT_EQ(applied(*gone, display(kRightId)), (Rect{1440, -23, 960, 563}));
}

TEST_F(WindowPlacementTest, TreatsANilDisplayAsZeros) {
    EXPECT_EQ(computed(*userState({100, 50, 800, 600}, kMain), std::nullopt),
              (Rect{0, -23, 0, 23}));
    EXPECT_EQ(computed(*builtIn({0.9, 0.9}), std::nullopt), Rect{});
    // Nothing guards a state that was saved without a display.
    EXPECT_FALSE(std::isfinite(computed(*userState({1, 1, 1, 1}, {}), display(kMainId)).width));
}

TEST_F(WindowPlacementTest, LeavesAWindowAloneThatCannotBeMovedAndResized) {
    const auto state = userState({100, 50, 800, 600}, kMain);
    for (const auto& what : {MemoryWindows::Window{.pid = kEditor, .isMovable = false},
                             MemoryWindows::Window{.pid = kEditor, .isResizable = false},
                             MemoryWindows::Window{.pid = kEditor, .isFullScreen = true}}) {
        const auto fixed = desktop_.windows.openWindow(what);
        element_ = AccessibilityElement::elementWithAXUIElementRef(
            desktop_.accessibility, MemoryAccessibility::elementOf(fixed));
        for (const auto& each : {state, builtIn({0.9, 0.9})}) {
            EXPECT_FALSE(
                applyToWindowElement(*each, element_, display(kMainId), desktop_.displays));
            EXPECT_EQ(computed(*each, display(kMainId)), Rect{});
        }
        EXPECT_EQ(desktop_.windows.find(fixed)->frame, Rect{});
    }
    EXPECT_FALSE(applyToWindowElement(*state, nullptr, display(kMainId), desktop_.displays));
    EXPECT_EQ(getSizePositionForWindowElement(*state, nullptr, display(kMainId)), Rect{});
}

TEST_F(WindowPlacementTest, WritesThePositionAgainAfterTheSize) {
    // A window that its program holds back at the old place: the second position moves it.
    std::vector<MemoryWindowId> writes;
    desktop_.accessibility.setBeforeWrite([&](MemoryWindowId window) {
        writes.push_back(window);
        if (writes.size() == 3) {
            desktop_.windows.setFrame(window, {5, 5, 800, 600});
        }
    });
    EXPECT_EQ(applied(*userState({100, 50, 800, 600}, kMain), display(kMainId)),
              (Rect{100, 50, 800, 600}));
    EXPECT_EQ(writes, std::vector<MemoryWindowId>(3, window_));
}

TEST_F(WindowPlacementTest, SurvivesAWindowThatVanishesBetweenTwoWrites) {
    desktop_.accessibility.setBeforeWrite(
        [&](MemoryWindowId window) { desktop_.windows.closeWindow(window); });
    EXPECT_TRUE(
        applyToWindowElement(*builtIn({1, 1}), element_, display(kMainId), desktop_.displays));
}

} // namespace
} // namespace panewright
