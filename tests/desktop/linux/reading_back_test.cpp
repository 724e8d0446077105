#include "accessibility/accessibility_helper.h"
#include "contract/x11_rig.h"
#include "geometry/frame_attributes.h"
#include "geometry/next_display.h"
#include "support/print_geometry.h"

#include <cmath>
#include <gmock/gmock.h>
#include <optional>

namespace panewright {
namespace {

using test::Frame;
using test::TestClient;

/// One window of another program on a display of its own, and the adapter that places it.
class Placing {
public:
    Placing(const test::XServer::Options& display, std::string_view windowManager,
            const TestClient::Options& client)
        : rig(display, windowManager), client_(rig.desktop.display(), client) {
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
        const Rect frame = makeRect(std::get<Point>(*position), std::get<Size>(*size));
        rig.loop.runPending();
        return frame;
    }

    Rect trueFrame() const {
        const auto frame = test::outerFrame(rig.desktop.x(), client_.window());
        return {static_cast<double>(frame.x), static_cast<double>(frame.y),
                static_cast<double>(frame.width), static_cast<double>(frame.height)};
    }

    xcb_window_t window() const { return client_.window(); }

    X11Rig rig;

private:
    TestClient client_;
    std::shared_ptr<AccessibilityElement> window_;
};

struct Case {
    std::string name;
    test::XServer::Options display;
    std::string windowManager;
    TestClient::Options client;
    std::uint32_t panelHeight;
    Rect written;
    Rect read;
    Rect settled;
};

TEST(ReadingBack, GivesWhatWasWrittenUntilTheWindowMoves) {
    const std::vector<Case> cases{
        {"whole cells",
         {},
         "openbox",
         {.increments = TestClient::Extent{10, 20}},
         0,
         {80, 45, 1440, 810},
         {80, 45, 1440, 810},
         {80, 45, 1432, 805}},
        {"a panel", {}, "xfwm4", {}, 30, {0, 0, 1600, 900}, {0, 0, 1600, 900}, {0, 30, 1600, 900}},
        {"between pixels",
         {.width = 1366, .height = 768},
         "openbox",
         {},
         0,
         {68.3, 38.4, 1229.4, 691.2},
         {69, 39, 1229.4, 691.2},
         {69, 39, 1229, 691}},
        {"limited by far",
         {},
         "openbox",
         {.maximumSize = TestClient::Extent{600, 400}},
         0,
         {80, 45, 1440, 810},
         {80, 45, 602, 425},
         {80, 45, 602, 425}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        Placing placing(test.display, test.windowManager, test.client);
        const auto& x = placing.rig.desktop.x();
        std::optional<TestClient> panel;
        if (test.panelHeight > 0) {
            panel.emplace(placing.rig.desktop.display());
            x.setProperty(panel->window(), "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                          {0, 0, test.panelHeight, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
            x.synchronize();
        }
        for (int time = 0; time < 2; ++time) {
            placing.write(test.written);
            EXPECT_EQ(placing.read(), test.read);
            EXPECT_EQ(placing.trueFrame(), test.settled);
        }
        x.sendToWindowManager(placing.window(), "_NET_MOVERESIZE_WINDOW",
                              {1U | 3U << 8U | 2U << 12U, 200, 100, 0, 0});
        ASSERT_TRUE(placing.rig.eventually([&] { return placing.trueFrame().x == 200; }));
        EXPECT_EQ(placing.read(), placing.trueFrame());
    }
}

TEST(ReadingBack, LosesAtMostAPixelAMoveBetweenDisplaysOfOddRatio) {
    Placing placing({.width = 3286, .height = 1080}, "openbox", {});
    const auto environment = placing.rig.desktop.environment();
    test::runToEnd({"xrandr", "--setmonitor", "*A", "1366/300x768/200+0+0", "screen"}, environment);
    test::runToEnd({"xrandr", "--setmonitor", "B", "1920/500x1080/300+1366+0", "none"},
                   environment);
    const auto& displays = placing.rig.ports->displays;
    ASSERT_TRUE(placing.rig.eventually([&] { return displays.screens().size() == 2; }));
    const auto screens = QuartzDisplay::screens(displays);

    placing.write({101, 53, 601, 403});
    for (int move = 0; move < 40; ++move) {
        SCOPED_TRACE(move);
        const Rect frame = placing.read();
        const auto current = QuartzDisplay::withRect(displays, frame);
        const auto next = getNextDisplayForWindowRect(displays, frame);
        ASSERT_TRUE(current && next);
        const Rect wanted = frameOnNextDisplay(frame, current, *next);
        placing.write(wanted);
        placing.read();
        const Rect stands = placing.trueFrame();
        for (const double error : {stands.x - wanted.x, stands.y - wanted.y,
                                   stands.width - wanted.width, stands.height - wanted.height}) {
            EXPECT_LE(std::abs(error), 1);
        }
    }
    // Far less than forty pixels have come together.
    const Rect last = placing.trueFrame();
    EXPECT_LE(std::abs(last.x - 101), 20);
    EXPECT_LE(std::abs(last.y - 53), 20);
    EXPECT_LE(std::abs(last.width - 601), 2);
    EXPECT_LE(std::abs(last.height - 403), 2);
}

} // namespace
} // namespace panewright
