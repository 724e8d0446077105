#include "support/panel.h"
#include "system/program.h"

#include <csignal>
#include <deque>
#include <string>
#include <thread>
#include <vector>

namespace panewright::test {
namespace {

struct Manager {
    std::string name;
    /// Whether it lets a window have whole steps only.
    bool obeysIncrements = true;
    /// Where Alt+2 to Alt+4 put a window that wants 1500 by 700 at least.
    std::array<Frame, 3> withMinimum;
    /// Where Alt+1 puts a test window that draws its own frame and the shadow around it.
    Frame withShadow = kStates[0];
};

std::ostream& operator<<(std::ostream& stream, const Manager& manager) {
    return stream << manager.name;
}

const std::vector<Manager> kManagers{
    {"openbox", true, {{{80, 45, 1502, 810}, {160, 90, 1502, 725}, {280, 158, 1502, 725}}}},
    {"xfwm4", false, {{{80, 45, 1510, 810}, {160, 90, 1510, 734}, {280, 158, 1510, 734}}}},
    // These three push a window back onto the screen, and so does marco with the shadow of one that
    // draws its own frame.
    {"marco",
     true,
     {{{80, 45, 1506, 810}, {94, 90, 1506, 726}, {94, 158, 1506, 726}}},
     {20, 22, 1559, 855}},
    {"metacity", true, {{{80, 45, 1500, 810}, {100, 90, 1500, 737}, {100, 158, 1500, 737}}}},
    {"mutter", true, {{{80, 45, 1500, 810}, {100, 90, 1500, 737}, {100, 158, 1500, 737}}}},
    // It takes no notice of a floating window's limits.
    {"i3", false, {{kStates[1], kStates[2], kStates[3]}}},
    {"kwin_x11", true, {{{80, 45, 1500, 810}, {160, 90, 1500, 720}, {280, 158, 1500, 700}}}},
};

std::vector<Manager> installedManagers() {
    std::vector<Manager> installed;
    std::ranges::copy_if(kManagers, std::back_inserter(installed), [](const Manager& manager) {
        return WindowManager::isInstalled(manager.name);
    });
    return installed;
}

class WindowManagers : public testing::TestWithParam<Manager> {
protected:
    static std::uint16_t keyOf(std::size_t state) {
        return static_cast<std::uint16_t>(KEY_1 + state);
    }

    /// Presses Alt+4 to Alt+1 and checks where the window then is.
    void expectFrames(xcb_window_t window, const FourFrames& expected) const {
        for (std::size_t state = expected.size(); state-- > 0;) {
            expectAfter(keyOf(state), expected.at(state), desktop_, window);
        }
    }

    /// The same for a window that takes whole steps, up to `step` pixels high and wide.
    void expectFramesInSteps(xcb_window_t window, int step) const {
        if (!GetParam().obeysIncrements) {
            expectFrames(window, kStates);
            return;
        }
        for (const std::size_t state : {3U, 2U, 1U}) {
            const Frame& full = kStates.at(state);
            desktop_.keyboard().tap(KEY_LEFTALT, keyOf(state));
            const auto fits = [&] {
                const Frame frame = outerFrame(desktop_.x(), window);
                return frame.x == full.x && frame.y == full.y && frame.width <= full.width &&
                       frame.width > full.width - step && frame.height <= full.height &&
                       frame.height > full.height - step;
            };
            EXPECT_TRUE(eventually(fits))
                << testing::PrintToString(outerFrame(desktop_.x(), window));
        }
    }

    void expectNothingHappens(xcb_window_t window) const {
        const Frame before = outerFrame(desktop_.x(), window);
        desktop_.keyboard().tap(KEY_LEFTALT, KEY_2);
        // There is nothing to wait for; what could happen takes a few milliseconds.
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        EXPECT_EQ(outerFrame(desktop_.x(), window), before);
    }

    Desktop desktop_{{}, GetParam().name};
    // The hot keys are there from the start, as there is a window to press them in.
    TestClient first_{desktop_.display()};
    Program program_{(first_.activate(), desktop_)};
};

TEST_P(WindowManagers, TakeWindowsOutOfStatesThatBlockPlacing) {
    const auto window = first_.window();
    expectFrames(window, kStates);
    const std::vector<std::vector<std::string>> cases{
        {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"},
        {"_NET_WM_STATE_SHADED"},
        {"_NET_WM_STATE_MAXIMIZED_VERT"}, // also what a window tiled to a side says
    };
    for (const auto& states : cases) {
        SCOPED_TRACE(states.front());
        for (const std::size_t state : {3U, 1U}) {
            addStates(desktop_.x(), window, states);
            expectAfter(keyOf(state), kStates.at(state), desktop_, window);
        }
    }
    addStates(desktop_.x(), window, {"_NET_WM_STATE_FULLSCREEN"});
    // kwin says so before it has done it.
    ASSERT_EQ(frameOnceItIs(kStates[0], desktop_.x(), window), kStates[0]);
    expectNothingHappens(window);
}

TEST_P(WindowManagers, PlaceWindowsOfEveryGravity) {
    std::deque<TestClient> clients; // all stay, so that none gets the identifier of another
    for (int gravity = XCB_GRAVITY_NORTH_WEST; gravity <= XCB_GRAVITY_STATIC; ++gravity) {
        SCOPED_TRACE(gravity);
        const ClientOptions options{.gravity = static_cast<xcb_gravity_t>(gravity)};
        const auto& client = clients.emplace_back(desktop_.display(), options);
        client.activate();
        expectFrames(client.window(), kStates);
    }
}

TEST_P(WindowManagers, PlaceWindowsWithLimitsAsFarAsTheyGo) {
    const TestClient large(desktop_.display(), {.minimumSize = Size{1500, 700}});
    large.activate();
    const auto& [second, third, fourth] = GetParam().withMinimum;
    expectFrames(large.window(), {kStates[0], second, third, fourth});

    const TestClient steps(desktop_.display(), {.increments = Size{37, 41}});
    steps.activate();
    expectFramesInSteps(steps.window(), 41);

    const TestClient fixed(desktop_.display(),
                           {.minimumSize = Size{400, 300}, .maximumSize = Size{400, 300}});
    fixed.activate();
    expectNothingHappens(fixed.window());

    const TestClient ownFrame(desktop_.display(), {.gtkFrameExtents = {{20, 21, 22, 23}}});
    ownFrame.activate();
    expectFrames(ownFrame.window(), {GetParam().withShadow, kStates[1], kStates[2], kStates[3]});
}

TEST_P(WindowManagers, FitWhatCoversTheDisplayBesideAPanelAndNothingElse) {
    const struct {
        const char* edge;
        Frame panel;
        Strut strut;
        Frame rest;
    } cases[] = {
        {"top", {0, 0, 1600, 70}, {0, 0, 70, 0, 0, 0, 0, 0, 0, 1599}, {0, 70, 1600, 830}},
        {"bottom", {0, 830, 1600, 70}, {0, 0, 0, 70, 0, 0, 0, 0, 0, 0, 0, 1599}, {0, 0, 1600, 830}},
        {"left", {0, 0, 70, 900}, {70, 0, 0, 0, 0, 899}, {70, 0, 1530, 900}},
        {"right", {1530, 0, 70, 900}, {0, 70, 0, 0, 0, 0, 0, 899}, {0, 0, 1530, 900}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.edge);
        const Panel panel(desktop_.display(), test.panel, test.strut);
        // The program hears of it a moment after it has come.
        const auto fits = [&] {
            desktop_.keyboard().tap(KEY_LEFTALT, KEY_4);
            desktop_.keyboard().tap(KEY_LEFTALT, KEY_1);
            return frameOnceItIs(test.rest, desktop_.x(), first_.window(),
                                 std::chrono::milliseconds(200)) == test.rest;
        };
        EXPECT_TRUE(eventually(fits))
            << testing::PrintToString(outerFrame(desktop_.x(), first_.window()));
        expectAfter(KEY_4, kSmall, desktop_, first_.window());
    }
}

TEST_P(WindowManagers, PlaceTheWindowsOfToolkits) {
    Environment environment = desktop_.environment();
    environment.insert({{"GTK_CSD", "1"}, {"NO_AT_BRIDGE", "1"}, {"GSETTINGS_BACKEND", "memory"}});
    const std::vector<std::pair<std::vector<std::string>, int>> cases{
        {{"xterm", "-e", "sh", "-c", "exec cat"}, 20},
        {{"yad", "--text-info"}, 1},
        {{QT_WINDOW}, 1}};
    for (const auto& [command, step] : cases) {
        SCOPED_TRACE(command.front());
        const ChildProcess program(command, environment);
        ASSERT_TRUE(eventually([&] {
            return !first_.isActive() &&
                   outerFrame(desktop_.x(), desktop_.x().activeWindow()).width > 0;
        }));
        expectFramesInSteps(desktop_.x().activeWindow(), step);
        program.sendSignal(SIGSTOP); // one that hangs delays no other
        desktop_.keyboard().tap(KEY_LEFTALT, KEY_2);
        first_.activate();
        expectAfter(KEY_3, kStates[2], desktop_, first_.window(), std::chrono::seconds(1));
    }
}

INSTANTIATE_TEST_SUITE_P(, WindowManagers, testing::ValuesIn(installedManagers()),
                         [](const auto& manager) { return manager.param.name; });

} // namespace
} // namespace panewright::test
