// A process that is killed while it saves leaves all of the old states or all of the new.

#include "support/store_fixture.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace panewright {
namespace {

constexpr std::size_t kStates = 5000;
constexpr int kRounds = 200;
/// Every so many rounds the child saves through the whole store, archiving included.
constexpr int kWholeRound = 20;

class StoreKillTest : public StoreFixture {
protected:
    /// With an array of built-in states, so that loading adds none.
    static WindowStates states(const std::string& name) {
        WindowStates states = makeStates(kStates, name);
        states["defaults"] = std::make_shared<WindowStateArray>();
        return states;
    }

    /// Saves in turns until it is killed.
    [[noreturn]] void saveForever(const Bytes& one, const Bytes& two) {
        StoreFile file(folders_);
        file.accept();
        for (;;) {
            static_cast<void>(file.write(one));
            static_cast<void>(file.write(two));
        }
    }
    [[noreturn]] void saveWholeStoreForever() {
        Model model(folders_, defaults_);
        for (;;) {
            model.setWindowStates(states("three"));
            model.save();
            model.finishSaving();
        }
    }
};

TEST_F(StoreKillTest, FindsTheFileWholeAfterEveryKill) {
    const Bytes one = *archivedSnapshot(snapshotOf(states("one")));
    const Bytes two = *archivedSnapshot(snapshotOf(states("two")));
    std::filesystem::create_directories(folder_);
    ASSERT_FALSE(writeFileAtomically(file_, one));
    std::mt19937 random(20); // always the same delays; where they strike differs
    for (int round = 0; round < kRounds; ++round) {
        const bool isWhole = round % kWholeRound == 0;
        const pid_t child = ::fork();
        if (child == 0) {
            isWhole ? saveWholeStoreForever() : saveForever(one, two);
        }
        const int longest = isWhole ? 2'000'000 : 20'000;
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution<int>(0, longest)(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const auto content = readFile(file_);
        ASSERT_TRUE(content) << round;
        if (content.value() != one && content.value() != two) {
            ASSERT_EQ(commonName(unarchivedWindowStates(content.value()), kStates), "three")
                << round;
        }
    }
    EXPECT_NE(commonName(statesOnDisk(), kStates), "");
    EXPECT_LE(countOfNames(folder_, ""), 2) << "no more than one unfinished file is left";
}

} // namespace
} // namespace panewright
