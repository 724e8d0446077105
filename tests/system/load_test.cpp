#include "system/program.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <thread>

namespace panewright::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr Frame kLarge{.x = 80, .y = 45, .width = 1440, .height = 810};
constexpr Frame kSmall{.x = 280, .y = 158, .width = 1040, .height = 585};

/// Memory that is the process's own, in KiB (proc(5), "VmRSS" less "RssFile").
long residentOwnMemory(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    long kibibytes = 0;
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("RssAnon:")) {
            kibibytes = std::stol(line.substr(8));
        }
    }
    return kibibytes;
}

class Load : public testing::Test {
protected:
    /// Alternates between two states; each press is seen to have moved the window.
    void press(int count) {
        for (int i = 0; i < count; ++i) {
            const bool isLarge = i % 2 == 0;
            desktop_.keyboard().tap(KEY_LEFTALT, isLarge ? KEY_2 : KEY_4);
            const Frame& frame = isLarge ? kLarge : kSmall;
            ASSERT_EQ(frameOnceItIs(frame, desktop_.x(), window_.window()), frame) << i;
        }
    }

    /// Under the address sanitizer, memory that was freed is otherwise kept back for a while.
    Environment environment() const {
        Environment environment = desktop_.environment();
        environment["ASAN_OPTIONS"] = "quarantine_size_mb=0:thread_local_quarantine_size_kb=0";
        return environment;
    }

    Desktop desktop_;
    TestClient window_{desktop_.display()};
};

TEST_F(Load, FiveHundredPressesInTenSecondsAreAllHandled) {
    window_.activate();
    Program program(environment());
    press(50); // what is made once has been made then
    const long before = residentOwnMemory(program->pid());
    const auto start = Clock::now();
    press(500);
    EXPECT_LT(Clock::now() - start, 10s);
    EXPECT_LE(residentOwnMemory(program->pid()) - before, 200);
}

TEST_F(Load, AThousandSwitchesOfTheApplicationLoseNoPress) {
    const TestClient other(desktop_.display(), {.windowClass = "Other"});
    window_.activate();
    Program program(environment());
    const auto goToAndFro = [&](int times) {
        for (int i = 0; i < times; ++i) {
            other.activate();
            window_.activate();
            if (i % 25 == 0) {
                press(2);
            }
        }
    };
    goToAndFro(50); // what is made once has been made then
    const long before = residentOwnMemory(program->pid());
    goToAndFro(500);
    press(2);
    EXPECT_LE(residentOwnMemory(program->pid()) - before, 200);
}

TEST_F(Load, AProgramThatHangsDelaysNobody) {
    const ChildProcess terminal({"xterm", "-class", "Hung"}, desktop_.environment());
    ASSERT_TRUE(eventually([&] {
        return desktop_.x().property(desktop_.x().root(), "_NET_CLIENT_LIST").size() == 2;
    }));
    window_.activate();
    const Program program(desktop_); // hot keys are installed while there is a program to be in
    press(2);
    terminal.sendSignal(SIGSTOP);
    for (const auto window : desktop_.x().property(desktop_.x().root(), "_NET_CLIENT_LIST")) {
        if (window != window_.window()) {
            constexpr std::uint32_t kPager = 2;
            desktop_.x().sendToWindowManager(window, "_NET_ACTIVE_WINDOW",
                                             {kPager, XCB_CURRENT_TIME});
        }
    }
    ASSERT_TRUE(eventually([&] { return !window_.isActive(); }));
    desktop_.keyboard().tap(KEY_LEFTALT, KEY_2);
    window_.activate();
    const auto start = Clock::now();
    press(2);
    EXPECT_LT(Clock::now() - start, 1s);
    terminal.sendSignal(SIGCONT);
}

} // namespace
} // namespace panewright::test
