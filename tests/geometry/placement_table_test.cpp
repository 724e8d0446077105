// Frames as an independent program computes them, which also other instructions of the processor
// must give.

#include "accessibility/accessibility_element.h"
#include "desktop/memory/memory_desktop.h"
#include "geometry/next_display.h"
#include "geometry/window_placement.h"
#include "support/print_geometry.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace panewright {
namespace {

constexpr int kRows = 4'000;
constexpr ProcessId kProgram = 1;
constexpr DisplayId kSource = 1;
constexpr DisplayId kTarget = 2;

Rect nextRect(std::istream& row) {
    Rect rect;
    row >> rect.x >> rect.y >> rect.width >> rect.height;
    return rect;
}

class PlacementTable : public testing::Test {
protected:
    PlacementTable() {
        desktop_.windows.addApplication({kProgram, "org.example.Editor", "Editor"});
        window_ = desktop_.windows.openWindow({.pid = kProgram});
        element_ = AccessibilityElement::elementWithAXUIElementRef(
            desktop_.accessibility, WindowsAccessibility::elementOf(kProgram, window_));
    }

    /// What is computed without touching the window, and what the window gets.
    std::pair<Rect, Rect> framesOf(const WindowState& state, const QuartzDisplay& display) {
        const Rect computed = getSizePositionForWindowElement(state, element_, display);
        applyToWindowElement(state, element_, display, desktop_.displays);
        return {computed, desktop_.windows.find(window_)->frame};
    }

    /// How many of the frames of the row differ.
    int differencesIn(std::istream& row) {
        const Rect window = nextRect(row);
        const Rect source = nextRect(row);
        const Rect target = nextRect(row);
        desktop_.displays.setDisplays(
            {{.id = kSource, .bounds = source}, {.id = kTarget, .bounds = target}});
        const QuartzDisplay onto(desktop_.displays, kTarget);
        const auto builtIn = WindowState::windowStateIsDefault(true, false);
        Size scale;
        row >> scale.width >> scale.height;
        builtIn->setWindowScale(scale);
        const auto user = WindowState::init();
        user->setOriginalWindowRect(window);
        user->setOriginalQuartzDisplayBounds(source);

        const Rect expectedUser = nextRect(row);
        const std::pair userFrames(expectedUser, expectedUser);
        const Rect applied = nextRect(row);
        const std::pair builtInFrames(nextRect(row), applied);
        const Rect next = nextRect(row);
        return (framesOf(*user, onto) != userFrames ? 1 : 0) +
               (framesOf(*builtIn, onto) != builtInFrames ? 1 : 0) +
               (frameOnNextDisplay(window, QuartzDisplay(desktop_.displays, kSource), onto) != next
                    ? 1
                    : 0);
    }

    MemoryDesktop desktop_;
    WindowId window_ = 0;
    std::shared_ptr<AccessibilityElement> element_;
};

TEST_F(PlacementTable, HoldsToTheLastBit) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "table";
    const std::string command = std::string(PYTHON) + " " + PLACEMENT_TABLE + " " +
                                std::to_string(kRows) + " > " + file.string();
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::ifstream table(file);
    int rows = 0;
    int differences = 0;
    for (std::string line; std::getline(table, line); ++rows) {
        std::istringstream row(line);
        const int found = differencesIn(row);
        EXPECT_TRUE(row) << line;
        EXPECT_TRUE(found == 0 || differences > 3) << line;
        differences += found;
    }
    EXPECT_EQ(rows, kRows);
    EXPECT_EQ(differences, 0);
}

} // namespace
} // namespace panewright
