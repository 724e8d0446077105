#include "model/store_lock.h"

#include "base/file.h"
#include "base/log.h"
#include "base/retried.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace panewright {
namespace {

/// The lock file may be replaced between opening and locking it, but hardly twice.
constexpr int kMaxAttempts = 10;

/// What a process says of itself is short.
constexpr std::size_t kMaxHolderSize = 1024;

} // namespace

StoreLock::StoreLock(const StandardFolders& folders, std::string holder)
    : folders_(folders), holder_(std::move(holder)) {
    take();
}

StoreLock::~StoreLock() {
    release();
}

StoreLock::Outcome StoreLock::take() {
    if (outcome_ == Outcome::kHeld && isUnderItsName()) {
        return outcome_;
    }
    for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
        release();
        outcome_ = tryOnce();
        if (outcome_ != Outcome::kHeld || isUnderItsName()) {
            break;
        }
    }
    return outcome_;
}

StoreLock::Outcome StoreLock::tryOnce() {
    const auto path = file();
    if (path.empty()) {
        return Outcome::kUnavailable; // who reads or writes there says so
    }
    descriptor_ = retried([&] { return ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600); });
    // A lock of the open file, not of the process: those are lost as soon as any part of the
    // process closes the file.
    if (descriptor_ >= 0 && retried([&] { return ::flock(descriptor_, LOCK_EX | LOCK_NB); }) == 0) {
        lastLogged_.clear();
        // Only for people to read: a disk that is full takes no lock away.
        [[maybe_unused]] const bool isCut = ::ftruncate(descriptor_, 0) == 0;
        [[maybe_unused]] const auto written = ::write(descriptor_, holder_.data(), holder_.size());
        return Outcome::kHeld;
    }
    if (descriptor_ >= 0 && errno == EWOULDBLOCK) {
        return Outcome::kHeldByAnother;
    }
    logOnce(
        fmt::format("Error locking {}: {}", path.string(), std::generic_category().message(errno)));
    return Outcome::kUnavailable;
}

void StoreLock::release() {
    if (descriptor_ >= 0) {
        ::close(std::exchange(descriptor_, -1));
    }
}

bool StoreLock::isUnderItsName() const {
    struct stat own {};
    struct stat named {};
    const auto path = file();
    return !path.empty() && ::fstat(descriptor_, &own) == 0 && ::stat(path.c_str(), &named) == 0 &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

std::string StoreLock::holder() const {
    const auto content = readFile(file(), kMaxHolderSize);
    return content ? std::string(content.value().begin(), content.value().end()) : "";
}

std::filesystem::path StoreLock::file() const {
    auto path = quietStoreFilePath(folders_).value_or("");
    return path.empty() ? path : path += ".lock";
}

void StoreLock::logOnce(const std::string& reason) {
    if (reason != lastLogged_) {
        logLine(reason);
        lastLogged_ = reason;
    }
}

} // namespace panewright
