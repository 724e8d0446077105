#include "system/program.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <thread>
#include <vector>

namespace panewright::test {
namespace {

/// Three displays side by side, with keys that the built-in states do not use.
class SeveralDisplays : public testing::Test {
protected:
    SeveralDisplays() {
        connect({"1000/300x800/200+0+0", "1366/300x768/200+1000+0", "640/300x480/200+2366+100"});
        window_.activate();
    }

    void xrandr(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "xrandr");
        runToEnd(arguments, desktop_.environment());
    }
    /// Geometries as xrandr has them; the first is the primary display.
    void connect(const std::vector<std::string>& geometries) {
        for (const auto& geometry : geometries) {
            const std::string name = "D" + std::to_string(connected_);
            xrandr({"--setmonitor", (connected_ == 0 ? "*" : "") + name, geometry,
                    connected_ == 0 ? "screen" : "none"});
            ++connected_;
        }
    }
    void unplugLast() { xrandr({"--delmonitor", "D" + std::to_string(--connected_)}); }

    void writeSettings(const std::string& settings) const {
        const std::filesystem::path folder =
            std::filesystem::path(desktop_.environment()["XDG_CONFIG_HOME"]) / "Panewright";
        std::filesystem::create_directories(folder);
        std::ofstream(folder / "Panewright.conf") << "[General]\n" << settings;
    }

    void expectAfter(std::uint16_t key, const Frame& frame) {
        desktop_.keyboard().tap(KEY_LEFTALT, key);
        EXPECT_EQ(frameOnceItIs(frame, desktop_.x(), window_.window()), frame);
    }

    Desktop desktop_{{.width = 3006, .height = 900}};
    TestClient window_{desktop_.display()};
    int connected_ = 0;
};

constexpr Frame kSmallOnFirst{.x = 175, .y = 140, .width = 650, .height = 520};
constexpr Frame kSmallOnSecond{.x = 1240, .y = 135, .width = 888, .height = 499};
constexpr Frame kSmallOnThird{.x = 2478, .y = 184, .width = 416, .height = 312};

TEST_F(SeveralDisplays, KeepAStateWhereItIsUnlessTheUserLetsItMoveOn) {
    Program program(desktop_);
    expectAfter(KEY_4, kSmallOnFirst);
    desktop_.keyboard().tap(KEY_LEFTALT, KEY_4);
    expectAfter(KEY_2, {.x = 50, .y = 40, .width = 900, .height = 720}); // it was still here
    expectAfter(KEY_4, kSmallOnFirst);

    writeSettings("AllowMoveWindow=true\n");
    expectAfter(KEY_4, kSmallOnSecond); // where coordinates are fractions
    expectAfter(KEY_4, kSmallOnThird);
    expectAfter(KEY_4, kSmallOnFirst);

    expectAfter(KEY_1, {.x = 0, .y = 0, .width = 1000, .height = 800});
    expectAfter(KEY_1, {.x = 1000, .y = 0, .width = 1366, .height = 768});
    // The program looks once at what came of its writes, and repairs what another has moved by
    // then.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    placeWindow(desktop_.x(), window_.window(),
                {.x = 1000, .y = 23, .width = 1366, .height = 745}); // fills it below a menu bar
    expectAfter(KEY_1, {.x = 2366, .y = 100, .width = 640, .height = 480});
}

TEST_F(SeveralDisplays, AreGoneThroughWithTheirOwnKey) {
    writeSettings("MoveToNextWindowKeyEventKeyCode=45\n" // N
                  "MoveToNextWindowKeyEventKeyModifiers=524288\n");
    Program program(desktop_);
    placeWindow(desktop_.x(), window_.window(), {.x = 100, .y = 200, .width = 500, .height = 400});
    expectAfter(KEY_N, {.x = 1137, .y = 192, .width = 683, .height = 384});
    expectAfter(KEY_N, {.x = 2431, .y = 220, .width = 320, .height = 240});
    expectAfter(KEY_N, {.x = 102, .y = 200, .width = 500, .height = 400});
}

TEST_F(SeveralDisplays, MayBeUnpluggedBetweenTwoPressesAndDuringOne) {
    writeSettings("AllowMoveWindow=true\n");
    Program program(desktop_);
    expectAfter(KEY_4, kSmallOnFirst);
    expectAfter(KEY_4, kSmallOnSecond);
    unplugLast();
    expectAfter(KEY_4, kSmallOnFirst);

    desktop_.keyboard().press(KEY_LEFTALT);
    desktop_.keyboard().press(KEY_4);
    unplugLast();
    desktop_.keyboard().release(KEY_4);
    desktop_.keyboard().release(KEY_LEFTALT);
    expectAfter(KEY_2, {.x = 50, .y = 40, .width = 900, .height = 720});
    desktop_.keyboard().tap(KEY_LEFTALT, KEY_2); // there is no other display
    expectAfter(KEY_4, kSmallOnFirst);
    EXPECT_EQ(program->exitStatus(), std::nullopt);
}

} // namespace
} // namespace panewright::test
