// panewright-crash-report FOLDER
//
// Makes readable reports of what crashes have left in the folder, and prints the path of each, one
// a line. The desktop program starts it. Nothing is sent anywhere.

#include "crash_report/raw_facts.h"
#include "crash_report/report.h"
#include "desktop/linux/crash_files.h"

#include <fcntl.h>
#include <fmt/chrono.h>
#include <fmt/format.h>
#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare SIGPIPE
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace {

using namespace panewright;

namespace fs = std::filesystem;

/// For all of them, in seconds; a big one takes one or two.
constexpr unsigned kTimeLimit = 30;
/// What is mapped counts, so also the libraries with their debugging information. In bytes.
constexpr rlim_t kMemoryLimit = rlim_t{1} << 30;

/// What is read may be damaged, or may be made to do harm.
void limitProcess() {
    constexpr int kLowestPriority = 19;
    setpriority(PRIO_PROCESS, 0, kLowestPriority);
    alarm(kTimeLimit);
    constexpr rlimit kMemory{kMemoryLimit, kMemoryLimit};
    setrlimit(RLIMIT_AS, &kMemory);
    constexpr rlimit kNoCoreFile{0, 0};
    setrlimit(RLIMIT_CORE, &kNoCoreFile);
    signal(SIGPIPE, SIG_IGN); // the desktop program may end before the reports are made
}

class File {
public:
    explicit File(const fs::path& path)
        : descriptor_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~File() { close(descriptor_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

/// Nil where they cannot be read.
std::optional<RawFacts> factsIn(int file, std::uint64_t size) {
    if (size > kLargestRawFacts) {
        return std::nullopt;
    }
    Bytes bytes(size);
    const auto count = pread(file, bytes.data(), bytes.size(), 0);
    bytes.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
    return rawFactsOf(bytes);
}

/// A new file named by the time of the crash; nil where there can be none.
std::FILE* makeReport(const fs::path& folder, std::time_t time, fs::path& path) {
    std::tm parts{};
    gmtime_r(&time, &parts);
    constexpr int kMostOfOneSecond = 100;
    for (int number = 0; number < kMostOfOneSecond; ++number) {
        path =
            folder / fmt::format("{}{:%Y%m%d-%H%M%S}-{:02}.txt", kCrashReportPrefix, parts, number);
        const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
        if (file >= 0) {
            return fdopen(file, "w");
        }
    }
    return nullptr;
}

/// False where it could not be written; then the raw file stays.
bool report(const fs::path& folder, const fs::path& raw) {
    const File file(raw);
    struct stat status {};
    if (fstat(file.descriptor(), &status) != 0) {
        return false;
    }
    if (!S_ISREG(status.st_mode) || flock(file.descriptor(), LOCK_EX | LOCK_NB) != 0) {
        return true; // not ours, or another process is writing or naming it
    }
    const auto facts = factsIn(file.descriptor(), static_cast<std::uint64_t>(status.st_size));
    fs::path path;
    auto* const target = makeReport(folder, status.st_mtime, path);
    if (!target) {
        return false;
    }
    writeSummary(target, facts);
    if (std::fflush(target) != 0) { // the disk is full
        unlink(path.c_str());
        return false;
    }
    // Before the names are looked for, which may end this process: no file does that twice.
    unlink(raw.c_str());
    fmt::print("{}\n", path.string());
    std::fflush(stdout);
    if (facts) {
        writeStack(target, *facts);
    }
    return std::fclose(target) == 0;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        fmt::print(stderr, "usage: panewright-crash-report FOLDER\n");
        return 64;
    }
    limitProcess();
    const fs::path folder = argv[1];
    bool isDone = true;
    for (const auto& raw : filesWithPrefix(folder, kRawCrashPrefix)) {
        isDone = report(folder, raw) && isDone;
    }
    keepLastFiles(folder, kCrashReportPrefix, kMostCrashFiles);
    return isDone ? 0 : 1;
}
