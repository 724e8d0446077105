#include "desktop/linux/raw_crash_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>

namespace panewright {
namespace {

constexpr int kForUserAlone = 0600;

} // namespace

bool RawCrashFile::prepare(const std::string& path) {
    if (path.size() >= path_.size()) {
        return false;
    }
    path.copy(path_.data(), path.size());
    const auto folder = std::filesystem::path(path).parent_path();
    descriptor_ = open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kForUserAlone);
    if (descriptor_ >= 0) {
        flock(descriptor_, LOCK_EX | LOCK_NB);
        *fmt::format_to_n(link_.data(), link_.size() - 1, "/proc/self/fd/{}", descriptor_).out = 0;
    }
    return true;
}

bool RawCrashFile::begin() {
    if (descriptor_ >= 0) {
        return linkat(AT_FDCWD, link_.data(), AT_FDCWD, path_.data(), AT_SYMLINK_FOLLOW) == 0;
    }
    descriptor_ = open(path_.data(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kForUserAlone);
    return descriptor_ >= 0 && flock(descriptor_, LOCK_EX | LOCK_NB) == 0;
}

void RawCrashFile::add(CrashRecord kind, const void* bytes, std::size_t size) {
    addBehind(kind, nullptr, 0, bytes, size);
}

bool RawCrashFile::addMemory(CrashRecord kind, CrashAddress address, std::size_t size) {
    return addBehind(kind, &address, sizeof address,
                     reinterpret_cast<const void*>(address), // NOLINT(performance-no-int-to-ptr)
                     size);
}

/// The head comes last: only the system knows how much of the memory can be read, and tells it with
/// what it has written.
bool RawCrashFile::addBehind(CrashRecord kind, const void* front, std::size_t frontSize,
                             const void* bytes, std::size_t size) {
    const auto content = end_ + static_cast<std::int64_t>(sizeof(CrashRecordHead));
    if (lseek(descriptor_, content, SEEK_SET) < 0 || !write(front, frontSize)) {
        return false;
    }
    const auto written = size == 0 ? 0 : ::write(descriptor_, bytes, size);
    if (written < 0 || lseek(descriptor_, end_, SEEK_SET) < 0) {
        return false;
    }
    const auto sizeOfAll = frontSize + static_cast<std::size_t>(written);
    const CrashRecordHead head{kind, static_cast<std::uint32_t>(sizeOfAll)};
    if (!write(&head, sizeof head)) {
        return false;
    }
    end_ = content + static_cast<std::int64_t>(sizeOfAll);
    return true;
}

bool RawCrashFile::write(const void* bytes, std::size_t size) const {
    return size == 0 || ::write(descriptor_, bytes, size) == static_cast<ssize_t>(size);
}

} // namespace panewright
