#include "desktop/shared/written_frames.h"

#include "support/print_geometry.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(WrittenFrames, RoundAPositionUpAndASizeToTheNearest) {
    const std::pair<Point, Point> positions[] = {
        {{68.3, 38.4}, {69, 39}},
        {{-10.25, 1573.33337}, {-10, 1574}},
        {{100.0019, 100.002}, {100, 101}}, // noise of 32-bit steps, and just more than that
    };
    for (const auto& [written, rounded] : positions) {
        EXPECT_EQ(roundedPosition(written), rounded);
    }
    const std::pair<Size, Size> sizes[] = {{{1229.4, 691.2}, {1229, 691}}, {{1, 99.5}, {1, 100}}};
    for (const auto& [written, rounded] : sizes) {
        EXPECT_EQ(roundedSize(written), rounded);
    }
}

TEST(WrittenFrames, ForgiveADistanceOfSixtyFourPoints) {
    constexpr WindowId kWindow = 3;
    WrittenFrames frames;
    // What is 64 points from what was asked for is forgiven, 65 are not; what was written does not
    // matter.
    const Rect full{0, 0, 1600, 900}, besidePanel{0, 200, 1600, 700};
    const Rect pushed{0, 264, 1600, 636}, pushedFar{0, 265, 1600, 635};
    frames.keep(kWindow, {full, besidePanel, pushed});
    EXPECT_EQ(frames.frameToReport(kWindow, pushed), full);
    frames.keep(kWindow, {full, besidePanel, pushedFar});
    EXPECT_EQ(frames.frameToReport(kWindow, pushedFar), pushedFar);
    frames.keep(kWindow, {full, besidePanel, pushed});
    frames.forget(kWindow);
    EXPECT_EQ(frames.frameToReport(kWindow, pushed), pushed);
}

TEST(WrittenFrames, AskForTheWorkAreaWhereAFrameCoversAWholeDisplay) {
    const Rect left{0, 0, 1600, 900}, leftArea{0, 30, 1600, 870};
    const Rect right{1600, 100, 1000, 800}, rightArea{1600, 100, 960, 800};
    const Rect below{0, 900, 1600, 900};
    const std::vector<DisplayArea> both{{left, leftArea}, {right, rightArea}};
    const std::vector<DisplayArea> mirrored{{left, leftArea}, {left, leftArea}};
    const std::vector<DisplayArea> onlyRightHasAPanel{{left, left}, {right, rightArea}};
    const Rect higher{0, -23, 1600, 923};
    const struct {
        const char* name;
        Rect written;
        std::vector<DisplayArea> displays;
        Rect asked;
    } cases[] = {
        {"a whole display", left, both, leftArea},
        {"more than a display", higher, both, leftArea},
        {"a mirrored display", left, mirrored, leftArea},
        {"a display without a panel", left, onlyRightHasAPanel, left},
        {"more than one without a panel", higher, onlyRightHasAPanel, higher},
        {"one pixel less", {0, 0, 1599, 900}, both, {0, 0, 1599, 900}},
        {"one pixel of the next display", {0, 0, 1601, 900}, both, {0, 0, 1601, 900}},
        {"a display below that reaches up",
         {0, 877, 1600, 923},
         {{left, left}, {below, leftArea}},
         {0, 877, 1600, 923}},
        {"no display", left, {}, left},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        EXPECT_EQ(frameToAsk(test.written, test.displays), test.asked);
    }
}

} // namespace
} // namespace panewright
