#include "accessibility/accessibility_helper.h"
#include "contract/x11_rig.h"
#include "geometry/frame_attributes.h"
#include "geometry/next_display.h"

#include <cmath>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using test::TestClient;

/// One window of another program on a display of its own, and the adapter that places it.
class Placing {
public:
    explicit Placing(const test::Screen& screen = {}, const test::ClientOptions& options = {},
                     std::string_view windowManager = "openbox")
        : rig(screen, windowManager), client(rig.desktop.display(), options) {
        client.activate();
        const AccessibilityHelper helper(rig.ports->accessibility);
        EXPECT_TRUE(rig.eventually([&] {
            return (window_ = helper.focusedWindowForApplicationFromSystemElement()) != nullptr;
        }));
    }

    void write(const Rect& frame) {
        writeFrame(*window_, frame);
        rig.loop.runPending();
    }
    Rect read() {
        const auto position = window_->NSValueForAttribute(NSAccessibilityPositionAttribute);
        const auto size = window_->NSValueForAttribute(NSAccessibilitySizeAttribute);
        rig.loop.runPending();
        return makeRect(std::get<Point>(*position), std::get<Size>(*size));
    }
    Rect trueFrame() const { return test::outerFrame(rig.desktop.x(), client.window()); }

    void expectReadBack(const Rect& written, const Rect& answered, const Rect& settled) {
        for (int time = 0; time < 2; ++time) {
            write(written);
            EXPECT_EQ(read(), answered);
            EXPECT_EQ(trueFrame(), settled);
        }
        const Rect elsewhere{200, 100, settled.width, settled.height};
        test::placeWindow(rig.desktop.x(), client.window(), elsewhere);
        EXPECT_TRUE(rig.eventually([&] { return read() == elsewhere; }));
    }

    X11Rig rig;
    TestClient client;

private:
    std::shared_ptr<AccessibilityElement> window_;
};

TEST(ReadingBack, GivesWhatWasWrittenUntilTheWindowMoves) {
    const Rect large{80, 45, 1440, 810};
    Placing({}, {.increments = TestClient::Extent{10, 20}})
        .expectReadBack(large, large, {80, 45, 1432, 805});
    // Limited by far too much to be forgiven.
    Placing({}, {.maximumSize = TestClient::Extent{600, 400}})
        .expectReadBack(large, {80, 45, 602, 425}, {80, 45, 602, 425});
    // Between pixels.
    Placing({.width = 1366, .height = 768})
        .expectReadBack({68.3, 38.4, 1229.4, 691.2}, {69, 39, 1229.4, 691.2}, {69, 39, 1229, 691});

    Placing belowAPanel({}, {}, "xfwm4");
    const auto& x = belowAPanel.rig.desktop.x();
    const TestClient panel(belowAPanel.rig.desktop.display());
    x.setProperty(panel.window(), "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                  {0, 0, 30, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
    x.synchronize();
    belowAPanel.client.activate();
    belowAPanel.expectReadBack({0, 0, 1600, 900}, {0, 0, 1600, 900}, {0, 30, 1600, 900});
}

TEST(ReadingBack, LosesAtMostAPixelAMoveBetweenDisplaysOfOddRatio) {
    Placing placing({.width = 3286, .height = 1080});
    placing.rig.desktop.setDisplays({"1366x768+0+0", "1920x1080+1366+0"});
    const auto& displays = placing.rig.ports->displays;
    ASSERT_TRUE(placing.rig.eventually([&] { return displays.screens().size() == 2; }));
    const auto largestDifference = [](const Rect& a, const Rect& b) {
        return std::max({std::abs(a.x - b.x), std::abs(a.y - b.y), std::abs(a.width - b.width),
                         std::abs(a.height - b.height)});
    };
    const Rect start{101, 53, 601, 403};
    placing.write(start);
    for (int move = 0; move < 40; ++move) {
        const Rect frame = placing.read();
        const auto next = getNextDisplayForWindowRect(displays, frame);
        ASSERT_TRUE(next);
        const auto current = QuartzDisplay::withRect(displays, frame);
        const Rect wanted = frameOnNextDisplay(frame, current, *next);
        placing.write(wanted);
        placing.read();
        EXPECT_LE(largestDifference(placing.trueFrame(), wanted), 1) << move;
    }
    // Far less than forty pixels have come together.
    EXPECT_LE(largestDifference(placing.trueFrame(), start), 20);
    EXPECT_LE(std::abs(placing.trueFrame().width - start.width), 2);
}

} // namespace
} // namespace panewright
