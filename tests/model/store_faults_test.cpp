// The store when the system refuses: the file keeps all of the old states or has all of the new.

#include "support/captured_log.h"
#include "support/fault_injection.h"
#include "support/store_fixture.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <functional>

namespace panewright {
namespace {

constexpr int kStates = 50;

class StoreFaultsTest : public StoreFixture {
protected:
    StoreFaultsTest() {
        model_ = makeModel();
        save("old");
    }

    void save(const std::string& name) {
        model_->setWindowStates(makeStates(kStates, name));
        model_->save();
        model_->finishSaving();
    }
    std::string nameOnDisk() const { return commonName(statesOnDisk(), kStates); }

    /// Runs in a process of its own, which may then be restricted for good. The exit code.
    static int inChild(const std::function<int()>& body) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::_exit(body());
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    CapturedLog log_;
    std::unique_ptr<Model> model_;
};

TEST_F(StoreFaultsTest, KeepsTheOldStatesWhicheverCallFailsAndSavesThemNextTime) {
    const struct {
        const char* call;
        int number;
        int error;
        const char* cause;
        bool isInPlace; // the failing call comes after the new file has been moved into place
    } faults[] = {
        {"write", 1, ENOSPC, "No space left on device", false},
        {"write", 1, EDQUOT, "Disk quota exceeded", false},
        {"fsync", 1, EIO, "Input/output error", false},
        {"close", 1, EIO, "Input/output error", false},
        {"close", 1, EDQUOT, "Disk quota exceeded", false},
        {"rename", 1, EACCES, "Permission denied", false},
        {"fsync", 2, EIO, "Input/output error", true},
    };
    for (const auto& fault : faults) {
        SCOPED_TRACE(std::string(fault.call) + " " + std::to_string(fault.number));
        save("old");
        static_cast<void>(log_.take());
        faults::failCall(folder_, fault.call, fault.number, fault.error);
        save("new");
        EXPECT_TRUE(faults::stop());
        EXPECT_EQ(nameOnDisk(), fault.isInPlace ? "new" : "old");
        EXPECT_EQ(countOfNames(folder_, ""), 1) << "nothing is left lying about";
        const auto lines = log_.take();
        ASSERT_EQ(lines.size(), 1U);
        EXPECT_THAT(lines[0], testing::StartsWith("Error saving window states: "));
        EXPECT_THAT(lines[0], testing::HasSubstr(fault.cause));
        save("newer");
        EXPECT_EQ(nameOnDisk(), "newer");
    }
}

TEST_F(StoreFaultsTest, MeetsNoCallsButThoseThatTheTestsLetFail) {
    // One write, two fsyncs, two closes (the file's and the folder's), one rename.
    const std::pair<const char*, int> beyond[] = {
        {"write", 2}, {"fsync", 3}, {"close", 3}, {"rename", 2}};
    for (const auto& [call, number] : beyond) {
        faults::failCall(folder_, call, number, EIO);
        save("new");
        EXPECT_FALSE(faults::stop()) << call;
    }
}

TEST_F(StoreFaultsTest, FinishesShortAndInterruptedWrites) {
    faults::shortWrites(folder_);
    save("new");
    faults::stop();
    EXPECT_EQ(nameOnDisk(), "new");
    EXPECT_TRUE(log_.take().empty());
}

TEST_F(StoreFaultsTest, LogsALastingCauseOnce) {
    for (int attempt = 0; attempt < 3; ++attempt) {
        faults::failCall(folder_, "write", 1, ENOSPC);
        save("new");
        faults::stop();
    }
    EXPECT_EQ(log_.take().size(), 1U);
    save("newer");
    faults::failCall(folder_, "write", 1, ENOSPC);
    save("newest");
    faults::stop();
    EXPECT_EQ(log_.take().size(), 1U) << "it had worked in between";
}

TEST_F(StoreFaultsTest, KeepsTheOldStatesOnAFullDisk) {
    model_ = nullptr;
    EXPECT_EQ(inChild([this] {
                  ::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{512, 512};
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  model_ = makeModel();
                  save("new");
                  return static_cast<int>(log_.take().size());
              }),
              1);
    EXPECT_EQ(nameOnDisk(), "old");
    EXPECT_EQ(countOfNames(folder_, ""), 1);
}

TEST_F(StoreFaultsTest, KeepsTheOldStatesInAFolderThatMayNotBeWritten) {
    model_ = nullptr;
    namespace fs = std::filesystem;
    fs::permissions(file_, fs::perms(0644));
    fs::permissions(temporary_.path(), fs::perms(0755));
    fs::permissions(folder_, fs::perms(0555));
    EXPECT_EQ(inChild([this] {
                  constexpr uid_t kNobody = 65534;
                  if (::getuid() == 0 && ::setuid(kNobody) != 0) {
                      return -1;
                  }
                  model_ = makeModel();
                  const bool isLoaded = model_->windowStates()->size() > 1;
                  save("new");
                  return isLoaded ? static_cast<int>(log_.take().size()) : -1;
              }),
              1);
    fs::permissions(folder_, fs::perms(0755));
    EXPECT_EQ(nameOnDisk(), "old");
    EXPECT_EQ(countOfNames(folder_, ""), 1);
}

TEST_F(StoreFaultsTest, MakesAVanishedFolderAnew) {
    std::filesystem::remove_all(folder_);
    save("new");
    EXPECT_EQ(nameOnDisk(), "new");
}

TEST_F(StoreFaultsTest, LeavesTheStatesUnsetWhereTheFileMayNotBeRead) {
    model_ = nullptr;
    std::filesystem::permissions(temporary_.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder_, std::filesystem::perms(0777));
    std::filesystem::permissions(file_, std::filesystem::perms(0000));
    EXPECT_EQ(inChild([this] {
                  constexpr uid_t kNobody = 65534;
                  if (::getuid() == 0 && ::setuid(kNobody) != 0) {
                      return -1;
                  }
                  model_ = makeModel();
                  model_->restoreDefaultWindowStates();
                  model_->finishSaving();
                  return model_->windowStates() ? -1 : 7;
              }),
              7);
    std::filesystem::permissions(file_, std::filesystem::perms(0600));
    EXPECT_EQ(nameOnDisk(), "old");
}

} // namespace
} // namespace panewright
