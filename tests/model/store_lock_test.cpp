#include "model/store_lock.h"

#include "support/captured_log.h"
#include "support/store_fixture.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace panewright {
namespace {

using Outcome = StoreLock::Outcome;

class StoreLockTest : public StoreFixture {};

TEST_F(StoreLockTest, KeepsOthersOutAsLongAsItLives) {
    {
        const StoreLock first(folders_);
        EXPECT_EQ(first.outcome(), Outcome::kHeld);
        EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kHeldByAnother);
    }
    EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kHeld);
    EXPECT_EQ(modeOf(folder_ / "keyEvents.data.lock"), 0600);
}

TEST_F(StoreLockTest, EndsWithAProcessThatIsKilled) {
    std::array<int, 2> held{};
    ASSERT_EQ(::pipe(held.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const StoreLock lock(folders_);
        const char isHeld = lock.outcome() == Outcome::kHeld ? 1 : 0;
        static_cast<void>(::write(held[1], &isHeld, 1));
        ::pause();
        ::_exit(0);
    }
    char isHeld = 0;
    ASSERT_EQ(::read(held[0], &isHeld, 1), 1);
    EXPECT_EQ(isHeld, 1);
    EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kHeldByAnother);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kHeld);
    ::close(held[0]);
    ::close(held[1]);
}

TEST_F(StoreLockTest, SaysWhyThereIsNoLockToBeHad) {
    CapturedLog log;
    std::filesystem::create_directories(folder_ / "keyEvents.data.lock");
    EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kUnavailable);
    EXPECT_EQ(log.take().size(), 1U);
}

} // namespace
} // namespace panewright
