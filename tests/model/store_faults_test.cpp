// The store when the system refuses: the file keeps all of the old states or has all of the new.

#include "support/store_fixture.h"

#include <unistd.h>

#include <atomic>
#include <cerrno>

namespace panewright {
namespace {

/// The call of this name and number (from 1 on) fails with the error. "short write" stands for
/// every write, which then takes half of what it is given.
struct Fault {
    std::string_view call;
    int number = 0;
    int error = 0;
};
Fault fault; // changed only while nothing is being written
std::atomic<int> calls{0};

void plan(const Fault& planned) {
    fault = planned;
    calls = 0;
}

bool fails(std::string_view call) {
    if (call != fault.call || ++calls != fault.number) {
        return false;
    }
    errno = fault.error;
    return true;
}

} // namespace

// The linker lets the program's calls of the C library's functions come here.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {
ssize_t __real_write(int file, const void* bytes, std::size_t size);
int __real_fsync(int file);
int __real_close(int file);
int __real_rename(const char* from, const char* to);

ssize_t __wrap_write(int file, const void* bytes, std::size_t size) {
    const bool isShort = fault.call == "short write" && size > 1 && ++calls > 0;
    return fails("write") ? -1 : __real_write(file, bytes, isShort ? size / 2 : size);
}
int __wrap_fsync(int file) {
    return fails("fsync") ? -1 : __real_fsync(file);
}
int __wrap_close(int file) {
    const int result = __real_close(file); // also one that fails has closed
    return fails("close") ? -1 : result;
}
int __wrap_rename(const char* from, const char* to) {
    return fails("rename") ? -1 : __real_rename(from, to);
}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace {

constexpr int kStates = 50;

class StoreFaultsTest : public StoreFixture {
protected:
    ~StoreFaultsTest() override { plan({}); }

    void saveAs(const std::string& name) {
        model_->setWindowStates(makeStates(kStates, name));
        save(*model_);
    }
    /// The name of a state, empty unless they are all there.
    std::string nameOnDisk() const {
        std::vector<std::string> names;
        for (const auto& [key, array] : statesOnDisk().value_or(WindowStates())) {
            for (const auto& state : *array) {
                names.push_back(state->windowStateName().value_or(""));
            }
        }
        return names.size() == kStates ? names.front() : "";
    }

    CapturedLog log_;
    std::unique_ptr<Model> model_ = makeModel();
};

TEST_F(StoreFaultsTest, KeepsTheOldStatesWhicheverCallFailsAndSavesThemNextTime) {
    using enum StoreFailureCause;
    const struct {
        Fault fault;
        std::optional<StoreFailureCause> failure; // nil where it is overcome
        const char* cause;                        // null there
        const char* onDisk;
    } cases[] = {
        {{"write", 1, ENOSPC}, kDiskFull, "No space left on device", "old"},
        {{"write", 1, EDQUOT}, kDiskFull, "Disk quota exceeded", "old"},
        {{"fsync", 1, EIO}, kOther, "Input/output error", "old"},
        {{"close", 1, EDQUOT}, kDiskFull, "Disk quota exceeded", "old"},
        {{"rename", 1, EACCES}, kNotPermitted, "Permission denied", "old"},
        {{"fsync", 2, EIO}, kOther, "Input/output error", "new"}, // the folder's, after the move
        {{"write", 1, EINTR}, std::nullopt, nullptr, "new"},
        {{"fsync", 1, EINTR}, std::nullopt, nullptr, "new"},
        {{"close", 1, EINTR}, std::nullopt, nullptr, "new"},
        {{"short write", 1}, std::nullopt, nullptr, "new"},
    };
    for (const auto& [planned, failure, cause, onDisk] : cases) {
        SCOPED_TRACE(testing::Message() << planned.call << " " << planned.error);
        saveAs("old");
        static_cast<void>(log_.take());
        plan(planned);
        saveAs("new");
        EXPECT_GE(calls, planned.number);
        plan({});
        const auto told = model_->writeFailure();
        EXPECT_EQ(told ? std::optional(told->cause) : std::nullopt, failure);
        EXPECT_EQ(nameOnDisk(), onDisk);
        EXPECT_EQ(countOfFiles(folder_), 2) << "the store and its lock, nothing else";
        const auto lines = log_.take();
        ASSERT_EQ(lines.size(), cause ? 1U : 0U);
        if (cause) {
            EXPECT_THAT(lines[0], testing::StartsWith("Error saving window states: "));
            EXPECT_THAT(lines[0], testing::HasSubstr(cause));
        }
        saveAs("newer");
        EXPECT_FALSE(model_->writeFailure());
        EXPECT_EQ(nameOnDisk(), "newer");
    }
}

TEST_F(StoreFaultsTest, LogsALastingCauseOnceAndMakesAVanishedFolderAnew) {
    model_->finishSaving(); // of the built-in states
    std::filesystem::remove_all(folder_);
    for (const char* worked : {"first", "again"}) { // it had worked in between
        saveAs(worked);
        EXPECT_EQ(nameOnDisk(), worked);
        for (int attempt = 0; attempt < 3; ++attempt) {
            plan({"write", 1, ENOSPC});
            saveAs("new");
        }
        EXPECT_EQ(log_.take().size(), 1U);
    }
}

} // namespace
} // namespace panewright
