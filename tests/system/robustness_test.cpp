#include "system/program.h"

#include <algorithm>
#include <fstream>
#include <numeric>
#include <random>
#include <thread>

namespace panewright::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// No press may take longer, whatever happens around it.
constexpr auto kLongestHang = 500ms;
/// What allocators and caches may take in a quarter of a test, in kB: far less than losing
/// something in each round would add up to.
constexpr long kMemoryMargin = 40;

/// Adds up the numbers of all lines of a status file (proc(5)) that begin so.
long statusNumber(const std::filesystem::path& file, const std::string& start) {
    std::ifstream stream(file);
    long sum = 0;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(start)) {
            sum += std::stol(line.substr(line.find(':') + 1));
        }
    }
    return sum;
}

class Robustness : public testing::Test {
protected:
    /// Two places in turn.
    void expectMove(int turn, const TestClient& client,
                    std::chrono::milliseconds timeout = kLongestHang) const {
        const bool isLarge = turn % 2 == 0;
        expectAfter(isLarge ? KEY_2 : KEY_4, isLarge ? kLarge : kSmall, desktop_, client.window(),
                    timeout);
    }

    /// Does something until it fails; after the first rounds that must not take memory for good.
    template <class Round>
    void repeat(int rounds, int firstRounds, Round round) {
        const int quarter = (rounds - firstRounds) / 4;
        std::vector<long> memory;
        for (int i = 0; i < rounds && !HasFailure(); ++i) {
            SCOPED_TRACE(i);
            if (i >= firstRounds && (i - firstRounds) % quarter == 0) {
                memory.push_back(ownMemory());
            }
            round(i);
        }
        ASSERT_FALSE(HasFailure());
        EXPECT_EQ(program_->exitStatus(), std::nullopt);
        // What is lost is lost in each quarter; a backlog of events may take a lot once.
        std::adjacent_difference(memory.begin(), memory.end(), memory.begin());
        EXPECT_LE(*std::min_element(memory.begin(), memory.end()), kMemoryMargin)
            << testing::PrintToString(memory);
    }
    long ownMemory() { return statusNumber(processFile("status"), "RssAnon:"); }
    std::filesystem::path processFile(const std::string& name) {
        return "/proc/" + std::to_string(program_->pid()) + "/" + name;
    }

    Desktop desktop_;
    const TestClient client_{desktop_.display()};
    Program program_{(client_.activate(), desktop_)};
};

TEST_F(Robustness, HandlesFiveHundredPressesInTenSeconds) {
    Clock::time_point start;
    repeat(550, 50, [&](int i) {
        start = i == 50 ? Clock::now() : start;
        expectMove(i, client_);
    });
    EXPECT_LT(Clock::now() - start, 10s);
}

TEST_F(Robustness, LosesNoPressInAThousandSwitchesOfTheApplication) {
    const TestClient other(desktop_.display(), {.windowClass = "Other"});
    repeat(550, 50, [&](int i) {
        other.activate();
        client_.activate();
        if (i % 25 == 0) {
            expectMove(i / 25, client_);
        }
    });
}

TEST_F(Robustness, SurvivesAThousandWindowsThatVanish) {
    std::minstd_rand random(1); // NOLINT(bugprone-random-generator-seed): the same at every run
    std::uniform_int_distribution<> delay(0, 3000);
    repeat(1000, 200, [&](int i) {
        const TestClient client(desktop_.display());
        client.activate();
        desktop_.keyboard().tap(KEY_LEFTALT, i % 2 == 0 ? KEY_2 : KEY_4);
        std::this_thread::sleep_for(std::chrono::microseconds(delay(random)));
        client.destroy();
        if (i % 100 == 99) {
            client_.activate();
            expectMove(i / 100, client_);
        }
    });
}

TEST_F(Robustness, TakesNoWindowForOneThatVanishedUnseen) {
    const auto gone = TestClient(desktop_.display()).window();
    desktop_.x().setProperty(desktop_.x().root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {gone});
    expectMove(0, client_);
    const TestClient next(desktop_.display());
    ASSERT_EQ(next.window(), gone) << "the server gives numbers out again";
    next.activate();
    expectMove(0, next);
}

TEST_F(Robustness, FollowsAWindowManagerThatDiesAndIsStartedAgain) {
    repeat(20, 4, [&](int) {
        desktop_.killWindowManager();
        client_.takeFocus();
        expectMove(1, client_);
        desktop_.manageWith("openbox");
        client_.activate();
        expectMove(0, client_);
    });
    int turn = 1;
    for (const char* successor : {"i3", "marco", "xfwm4", "openbox"}) { // takes over
        SCOPED_TRACE(successor);
        desktop_.manageWith(successor);
        client_.activate();
        expectMove(turn++, client_);
    }
}

TEST_F(Robustness, SleepsWhileNothingHappens) {
    expectMove(0, client_);
    const auto contextSwitches = [this] {
        long sum = 0;
        for (const auto& thread : std::filesystem::directory_iterator(processFile("task"))) {
            sum += statusNumber(thread.path() / "status", "voluntary_ctxt_switches:") +
                   statusNumber(thread.path() / "status", "nonvoluntary_ctxt_switches:");
        }
        return sum;
    };
    // All that follows a press has been done, and what the program says once, where no panel is.
    ASSERT_TRUE(program_->waitForErrorLine("panewright: no panel"));
    std::this_thread::sleep_for(1s);
    const long before = contextSwitches();
    std::this_thread::sleep_for(10s);
    EXPECT_EQ(contextSwitches(), before);
}

} // namespace
} // namespace panewright::test
