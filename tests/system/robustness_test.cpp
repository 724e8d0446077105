#include "system/program.h"

#include <fstream>
#include <gmock/gmock.h>
#include <linux/input-event-codes.h>
#include <random>
#include <thread>

namespace panewright::test {
namespace {

using namespace std::chrono_literals;

/// No press may take longer, whatever happens around it.
constexpr auto kLongestHang = 500ms;
/// What allocators and caches may take in a test: far less than losing a window, display or manager
/// each time would add up to.
constexpr long kMemoryMargin = 256; // kB

struct Press {
    std::uint16_t key;
    Frame frame;
};
constexpr Press kLarge{KEY_2, {.x = 80, .y = 45, .width = 1440, .height = 810}};
constexpr Press kSmall{KEY_4, {.x = 280, .y = 158, .width = 1040, .height = 585}};

bool movesInTime(const Desktop& desktop, const TestClient& client, const Press& press) {
    desktop.keyboard().tap(KEY_LEFTALT, press.key);
    return eventually([&] { return outerFrame(desktop.x(), client.window()) == press.frame; },
                      kLongestHang);
}

/// Adds up the numbers of all lines "name: number ..." of a status file.
long statusNumber(const std::filesystem::path& file, const std::string& name) {
    std::ifstream stream(file);
    long sum = 0;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(name + ":")) {
            sum += std::stol(line.substr(name.size() + 1));
        }
    }
    return sum;
}

long residentMemory(pid_t pid) {
    return statusNumber("/proc/" + std::to_string(pid) + "/status", "RssAnon");
}

long contextSwitches(pid_t pid) {
    long sum = 0;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(pid) + "/task")) {
        sum += statusNumber(thread.path() / "status", "voluntary_ctxt_switches") +
               statusNumber(thread.path() / "status", "nonvoluntary_ctxt_switches");
    }
    return sum;
}

TEST(Robustness, SurvivesAThousandWindowsThatVanish) {
    Desktop desktop;
    const TestClient survivor(desktop.display());
    survivor.activate();
    Program program(desktop);
    std::minstd_rand random(1); // NOLINT(bugprone-random-generator-seed): the same at every run
    std::uniform_int_distribution<> delay(0, 3000);
    long before = 0;
    for (int window = 0; window < 1000; ++window) {
        const TestClient client(desktop.display());
        client.activate();
        desktop.keyboard().tap(KEY_LEFTALT, window % 2 == 0 ? KEY_2 : KEY_4);
        std::this_thread::sleep_for(std::chrono::microseconds(delay(random)));
        client.destroy();
        if (window % 100 == 99) {
            survivor.activate();
            ASSERT_TRUE(movesInTime(desktop, survivor, window % 200 == 99 ? kLarge : kSmall))
                << "after " << window + 1 << " windows";
        }
        if (window == 199) {
            before = residentMemory(program->pid());
        }
    }
    EXPECT_EQ(program->exitStatus(), std::nullopt);
    EXPECT_LE(residentMemory(program->pid()), before + kMemoryMargin);
}

TEST(Robustness, FollowsAWindowManagerThatDiesAndIsStartedAgain) {
    Desktop desktop;
    const TestClient client(desktop.display());
    client.activate();
    Program program(desktop);
    long before = 0;
    for (int restart = 0; restart < 20; ++restart) {
        SCOPED_TRACE(restart);
        desktop.killWindowManager();
        client.takeFocus();
        EXPECT_TRUE(movesInTime(desktop, client, kSmall))
            << outerFrame(desktop.x(), client.window());
        desktop.manageWith("openbox");
        client.activate();
        EXPECT_TRUE(movesInTime(desktop, client, kLarge))
            << outerFrame(desktop.x(), client.window());
        if (restart == 4) {
            before = residentMemory(program->pid());
        }
    }
    desktop.manageWith("i3"); // takes over
    client.activate();
    EXPECT_TRUE(movesInTime(desktop, client, kSmall)) << outerFrame(desktop.x(), client.window());
    EXPECT_EQ(program->exitStatus(), std::nullopt);
    EXPECT_LE(residentMemory(program->pid()), before + kMemoryMargin);
}

TEST(Robustness, PlacesWithoutAWindowManager) {
    const Desktop desktop({}, "");
    const TestClient client(desktop.display());
    const TestClient other(desktop.display());
    client.takeFocus();
    const Program program(desktop);
    EXPECT_TRUE(movesInTime(desktop, client, kLarge)) << outerFrame(desktop.x(), client.window());
    other.takeFocus();
    EXPECT_TRUE(movesInTime(desktop, other, kSmall)) << outerFrame(desktop.x(), other.window());
}

TEST(Robustness, FollowsDisplaysThatAreRedefined) {
    const Desktop desktop;
    const TestClient client(desktop.display());
    client.activate();
    Program program(desktop);
    const std::vector<std::string> define{"xrandr", "--setmonitor", "left", "800/300x900/300+0+0",
                                          "screen"};
    const std::vector<std::string> undo{"xrandr", "--delmonitor", "left"};
    // Half the display, from where the window is at its left.
    const Press onTheLeft{KEY_2, {.x = 40, .y = 45, .width = 720, .height = 810}};
    long before = 0;
    for (int change = 0; change < 50; ++change) {
        SCOPED_TRACE(change);
        desktop.keyboard().tap(KEY_LEFTALT, KEY_3);
        runToEnd(change % 2 == 0 ? define : undo, desktop.environment());
        EXPECT_TRUE(movesInTime(desktop, client, change % 2 == 0 ? onTheLeft : kLarge))
            << outerFrame(desktop.x(), client.window());
        if (change == 9) {
            before = residentMemory(program->pid());
        }
    }
    EXPECT_EQ(program->exitStatus(), std::nullopt);
    EXPECT_LE(residentMemory(program->pid()), before + kMemoryMargin);
}

TEST(Robustness, SleepsWhileNothingHappens) {
    const Desktop desktop;
    const TestClient client(desktop.display());
    client.activate();
    Program program(desktop);
    ASSERT_TRUE(movesInTime(desktop, client, kLarge));
    std::this_thread::sleep_for(2s); // all that follows a press has been done
    const long before = contextSwitches(program->pid());
    std::this_thread::sleep_for(10s);
    EXPECT_EQ(contextSwitches(program->pid()), before);
}

} // namespace
} // namespace panewright::test
