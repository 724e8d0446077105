#include "accessibility/accessibility_helper.h"
#include "contract/x11_rig.h"
#include "geometry/frame_attributes.h"
#include "geometry/next_display.h"

#include <cmath>
#include <gmock/gmock.h>
#include <optional>

namespace panewright {
namespace {

using test::TestClient;

/// One window of another program on a display of its own, and the adapter that places it.
class Placing {
public:
    Placing(const test::Screen& screen, std::string_view windowManager,
            const test::ClientOptions& client)
        : rig(screen, windowManager), client_(rig.desktop.display(), client) {
        client_.activate();
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
    Rect trueFrame() const { return test::outerFrame(rig.desktop.x(), window()); }
    xcb_window_t window() const { return client_.window(); }

    X11Rig rig;

private:
    TestClient client_;
    std::shared_ptr<AccessibilityElement> window_;
};

TEST(ReadingBack, GivesWhatWasWrittenUntilTheWindowMoves) {
    const struct {
        std::string name;
        test::Screen screen;
        std::string_view windowManager;
        test::ClientOptions client;
        std::uint32_t panelHeight;
        Rect written;
        Rect read;
        Rect settled;
    } cases[] = {
        {.name = "whole cells",
         .windowManager = "openbox",
         .client = {.increments = TestClient::Extent{10, 20}},
         .written = {80, 45, 1440, 810},
         .read = {80, 45, 1440, 810},
         .settled = {80, 45, 1432, 805}},
        {.name = "a panel",
         .windowManager = "xfwm4",
         .panelHeight = 30,
         .written = {0, 0, 1600, 900},
         .read = {0, 0, 1600, 900},
         .settled = {0, 30, 1600, 900}},
        {.name = "between pixels",
         .screen = {.width = 1366, .height = 768},
         .windowManager = "openbox",
         .written = {68.3, 38.4, 1229.4, 691.2},
         .read = {69, 39, 1229.4, 691.2},
         .settled = {69, 39, 1229, 691}},
        {.name = "limited by far",
         .windowManager = "openbox",
         .client = {.maximumSize = TestClient::Extent{600, 400}},
         .written = {80, 45, 1440, 810},
         .read = {80, 45, 602, 425},
         .settled = {80, 45, 602, 425}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        Placing placing(test.screen, test.windowManager, test.client);
        const auto& x = placing.rig.desktop.x();
        const TestClient panel(placing.rig.desktop.display());
        x.setProperty(panel.window(), "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                      {0, 0, test.panelHeight, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
        x.synchronize();
        for (int time = 0; time < 2; ++time) {
            placing.write(test.written);
            EXPECT_EQ(placing.read(), test.read);
            EXPECT_EQ(placing.trueFrame(), test.settled);
        }
        constexpr std::uint32_t kOriginOfAPager = 1U | 3U << 8U | 2U << 12U;
        x.sendToWindowManager(placing.window(), "_NET_MOVERESIZE_WINDOW",
                              {kOriginOfAPager, 200, 100});
        ASSERT_TRUE(placing.rig.eventually([&] { return placing.trueFrame().x == 200; }));
        EXPECT_EQ(placing.read(), placing.trueFrame());
    }
}

TEST(ReadingBack, LosesAtMostAPixelAMoveBetweenDisplaysOfOddRatio) {
    Placing placing({.width = 3286, .height = 1080}, "openbox", {});
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
        const Rect wanted =
            frameOnNextDisplay(frame, QuartzDisplay::withRect(displays, frame), *next);
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
