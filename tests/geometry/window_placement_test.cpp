// Where states put windows; also built with other instructions of the processor, which must compute
// the same.

#include "geometry/window_placement.h"

#include "desktop/memory/memory_desktop.h"
#include "geometry/next_display.h"
#include "support/print_geometry.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace panewright {
namespace {

constexpr ProcessId kEditor = 42;
constexpr Rect kMain{0, 0, 1440, 900}, kRight{1440, 0, 1920, 1080};
constexpr Rect kEnd{3360, 0, 1440, 900}; // as large as the main one
constexpr DisplayId kMainId = 1, kRightId = 2, kEndId = 3;

class WindowPlacementTest : public testing::Test {
protected:
    WindowPlacementTest() {
        desktop_.displays.setDisplays({{.id = kMainId, .bounds = kMain},
                                       {.id = kRightId, .bounds = kRight},
                                       {.id = kEndId, .bounds = kEnd}});
        desktop_.windows.addApplication({kEditor, "org.example.Editor", "Editor"});
        open({.pid = kEditor, .frame = {1, 2, 3, 4}});
    }

    void open(const MemoryWindows::Window& window) {
        window_ = desktop_.windows.openWindow(window);
        element_ = AccessibilityElement::elementWithAXUIElementRef(
            desktop_.accessibility, WindowsAccessibility::elementOf(kEditor, window_));
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
    bool apply(const WindowState& state, DisplayId on) {
        return applyToWindowElement(state, element_, QuartzDisplay(desktop_.displays, on),
                                    desktop_.displays);
    }
    Rect applied(const WindowState& state, DisplayId on) {
        EXPECT_TRUE(apply(state, on));
        return desktop_.windows.find(window_)->frame;
    }
    Rect computed(const WindowState& state, DisplayId on) {
        return getSizePositionForWindowElement(state, element_,
                                               QuartzDisplay(desktop_.displays, on));
    }

    MemoryDesktop desktop_;
    WindowId window_ = 0;
    std::shared_ptr<AccessibilityElement> element_;
};

TEST_F(WindowPlacementTest, ScalesAUserStateToTheDisplay) {
    constexpr Rect kWindow{100, 50, 800, 600};
    const struct {
        const char* what;
        Rect saved, savedOn;
        DisplayId on;
        Rect frame;
    } cases[] = {
        {"fractions stay", {100.5, 50.25, 800.1, 600}, kMain, kMainId, {100.5, 50.25, 800.1, 600}},
        {"a larger display", kWindow, kMain, kRightId, {1573, 37, 800.0 / 1440 * 1920, 743}},
        {"an equal one elsewhere", kWindow, kMain, kEndId, {3460, 27, 800, 623}},
        {"halves away from zero", {1, -1, 2, 2}, {0, 0, 2, 2}, kMainId, {720, -473, 1440, 923}},
    };
    for (const auto& [what, saved, savedOn, on, frame] : cases) {
        EXPECT_EQ(computed(*userState(saved, savedOn), on), frame) << what;
        EXPECT_EQ(applied(*userState(saved, savedOn), on), frame) << what;
    }
}

TEST_F(WindowPlacementTest, CentresABuiltInStateAndRoundsItsOriginUpOnlyWhenComputing) {
    const auto large = builtIn({0.9, 0.9});
    EXPECT_EQ(applied(*large, kMainId), (Rect{72, 45, 1296, 810}));
    EXPECT_EQ(applied(*builtIn({1.2, 3}), kRightId), kRight);
    EXPECT_EQ(computed(*builtIn({1.2, 3}), kRightId), kRight);
    EXPECT_EQ(computed(*builtIn({0, 0}), kMainId), (Rect{720, 450, 0, 0}));
    desktop_.displays.setDisplays({{.id = kMainId, .bounds = {0, 0, 1366, 768}}});
    EXPECT_EQ(applied(*large, kMainId),
              (Rect{68.29999999999995, 38.39999999999998, 1229.4, 691.2}));
    EXPECT_EQ(computed(*large, kMainId), (Rect{69, 39, 1229.4, 691.2}));
    // The fraction that 32 bits cannot hold is gone before rounding up: 100.00000001 is 100.
    EXPECT_EQ(computed(*builtIn({(1366 - 200.00000002) / 1366, 1}), kMainId).x, 100);
}

TEST_F(WindowPlacementTest, AgreesToTheLastBitWithAnIndependentProgram) {
    constexpr int kRows = 4'000;
    const TemporaryFolder folder;
    const std::string file = folder.path() / "table";
    const std::string command =
        PYTHON " " PLACEMENT_TABLE " " + std::to_string(kRows) + " > " + file;
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::ifstream table(file);
    int rows = 0;
    for (std::string line; std::getline(table, line); ++rows) {
        std::istringstream row(line);
        const auto next = [&row] {
            Rect rect;
            row >> rect.x >> rect.y >> rect.width >> rect.height;
            return rect;
        };
        const Rect window = next();
        const Rect source = next();
        const Rect target = next();
        Size scale;
        row >> scale.width >> scale.height;
        const Rect expected[] = {next(), next(), next(), next()};
        ASSERT_TRUE(row) << line;
        desktop_.displays.setDisplays(
            {{.id = kMainId, .bounds = source}, {.id = kRightId, .bounds = target}});
        const auto user = userState(window, source);
        ASSERT_EQ(computed(*user, kRightId), expected[0]) << line;
        ASSERT_EQ(applied(*user, kRightId), expected[0]) << line;
        ASSERT_EQ(applied(*builtIn(scale), kRightId), expected[1]) << line;
        ASSERT_EQ(computed(*builtIn(scale), kRightId), expected[2]) << line;
        const QuartzDisplay onto(desktop_.displays, kRightId);
        ASSERT_EQ(frameOnNextDisplay(window, QuartzDisplay(desktop_.displays, kMainId), onto),
                  expected[3])
            << line;
    }
    EXPECT_EQ(rows, kRows);
}

TEST_F(WindowPlacementTest, CountsAMissingDisplayAsZeros) {
    const auto state = userState({100, 50, 800, 600}, kMain);
    const auto computedOnNone = [&](const WindowState& placed) {
        return getSizePositionForWindowElement(placed, element_, std::nullopt);
    };
    EXPECT_EQ(computedOnNone(*state), (Rect{0, -23, 0, 23}));
    EXPECT_EQ(computedOnNone(*builtIn({0.9, 0.9})), Rect{});
    const Rect savedOnNone = computed(*userState({100, 50, 800, 600}, {}), kMainId);
    EXPECT_FALSE(std::isfinite(savedOnNone.x) || std::isfinite(savedOnNone.height));
}

TEST_F(WindowPlacementTest, PrefersTheFirstDisplayOfTheSavedSizeOnlyWhenApplying) {
    const auto state = userState({3460, 50, 800, 600}, kEnd);
    state->setPrefersDisplay(true);
    EXPECT_EQ(applied(*state, kRightId), (Rect{100, 27, 800, 623}));
    EXPECT_EQ(computed(*state, kRightId), (Rect{1573, 37, 800.0 / 1440 * 1920, 743}));
}

TEST_F(WindowPlacementTest, LeavesAWindowAloneThatCannotBeMovedAndResized) {
    for (const auto& what : {MemoryWindows::Window{.pid = kEditor, .isMovable = false},
                             MemoryWindows::Window{.pid = kEditor, .isResizable = false},
                             MemoryWindows::Window{.pid = kEditor, .isFullScreen = true}}) {
        open(what);
        for (const auto& state : {userState({100, 50, 800, 600}, kMain), builtIn({0.9, 0.9})}) {
            EXPECT_FALSE(apply(*state, kMainId));
            EXPECT_EQ(computed(*state, kMainId), Rect{});
        }
        EXPECT_EQ(desktop_.windows.find(window_)->frame, Rect{});
    }
    element_ = nullptr;
    EXPECT_FALSE(apply(*builtIn({1, 1}), kMainId));
    EXPECT_EQ(computed(*builtIn({1, 1}), kMainId), Rect{});
}

TEST_F(WindowPlacementTest, WritesThePositionAgainAfterTheSizeAlsoToAWindowThatVanishes) {
    // A window that its program holds back at the old place: the second position moves it.
    int writes = 0;
    desktop_.windows.setBeforeWrite([&](WindowId window) {
        if (++writes == 3) {
            desktop_.windows.setFrame(window, {5, 5, 800, 600});
        }
    });
    EXPECT_EQ(applied(*userState({100, 50, 800, 600}, kMain), kMainId), (Rect{100, 50, 800, 600}));
    EXPECT_EQ(writes, 3);
    desktop_.windows.setBeforeWrite([&](WindowId window) { desktop_.windows.closeWindow(window); });
    EXPECT_TRUE(apply(*builtIn({1, 1}), kMainId));
}

} // namespace
} // namespace panewright
