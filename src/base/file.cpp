#include "base/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace panewright {
namespace {

constexpr mode_t kNewFileMode = 0600;
constexpr mode_t kNewFolderMode = 0700;

/// As many links as the kernel follows.
constexpr int kMaxLinks = 40;

/// The error of the call that has just failed.
FileError failure(const char* step, const std::filesystem::path& path) {
    const int code = errno;
    return {code == ENOENT,
            fmt::format("{} {}: {}", step, path.string(), std::generic_category().message(code))};
}

/// Repeats a call that a signal interrupted.
template <class Call>
auto retried(Call call) {
    decltype(call()) result{};
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

/// An open file, closed when it goes.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

    /// False when the system reports a fault, which may be one of an earlier write. An interrupted
    /// close has closed all the same.
    bool close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || ::close(number) == 0 || errno == EINTR;
    }

private:
    int number_;
};

std::optional<FileError> writeAll(const Descriptor& file, const std::filesystem::path& path,
                                  const Bytes& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = retried(
            [&] { return ::write(file.number(), bytes.data() + done, bytes.size() - done); });
        if (count < 0) {
            return failure("writing", path);
        }
        done += static_cast<std::size_t>(count);
    }
    return std::nullopt;
}

/// Writes a new file and forces it to disk. What is left of it after a failure is the caller's to
/// remove.
std::optional<FileError> writeNewFile(const std::filesystem::path& path, const Bytes& bytes,
                                      mode_t mode) {
    Descriptor file(retried([&] {
        return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                      kNewFileMode);
    }));
    if (!file.isOpen()) {
        return failure("creating", path);
    }
    if (auto error = writeAll(file, path, bytes)) {
        return error;
    }
    if (mode != kNewFileMode && ::fchmod(file.number(), mode) != 0) {
        return failure("setting the mode of", path);
    }
    if (retried([&] { return ::fsync(file.number()); }) != 0) {
        return failure("syncing", path);
    }
    if (!file.close()) {
        return failure("closing", path);
    }
    return std::nullopt;
}

/// Forces the entries of a folder to disk, where its file system knows how to.
std::optional<FileError> syncFolder(const std::filesystem::path& path) {
    const Descriptor folder(
        retried([&] { return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder.isOpen()) {
        return failure("opening", path);
    }
    if (retried([&] { return ::fsync(folder.number()); }) != 0 && errno != EINVAL) {
        return failure("syncing", path);
    }
    return std::nullopt;
}

} // namespace

Result<Bytes, FileError> readFile(const std::filesystem::path& path, std::size_t maxSize) {
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    const Descriptor file(
        retried([&] { return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0) {
        return failure("opening", path);
    }
    if (!S_ISREG(status.st_mode) || std::cmp_greater(status.st_size, maxSize)) {
        return FileError{false, fmt::format("{} is not a regular file of at most {} bytes",
                                            path.string(), maxSize)};
    }
    // One byte more than it should have, so that its end is seen without growing the buffer.
    Bytes bytes(static_cast<std::size_t>(status.st_size) + 1);
    std::size_t done = 0;
    while (done < maxSize) {
        if (done == bytes.size()) {
            bytes.resize(bytes.size() * 2);
        }
        const ssize_t count = retried(
            [&] { return ::read(file.number(), bytes.data() + done, bytes.size() - done); });
        if (count < 0) {
            return failure("reading", path);
        }
        if (count == 0) {
            break;
        }
        done += static_cast<std::size_t>(count);
    }
    bytes.resize(done);
    return bytes;
}

std::optional<FileError> writeFileAtomically(const std::filesystem::path& path,
                                             const Bytes& bytes) {
    const std::filesystem::path target = linkTarget(path);
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) {
        return failure("looking at", target);
    }
    if (exists && !S_ISREG(status.st_mode)) {
        return FileError{false, fmt::format("{} is not a regular file", target.string())};
    }
    // The same name each time, so that what a crash left behind goes with the next save.
    const std::filesystem::path folder =
        target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
    const std::filesystem::path temporary =
        folder / fmt::format(".{}.new", target.filename().string());
    ::unlink(temporary.c_str());
    auto error = writeNewFile(temporary, bytes, exists ? status.st_mode & 07777 : kNewFileMode);
    if (!error && ::rename(temporary.c_str(), target.c_str()) != 0) {
        error = failure("moving into place", target);
    }
    if (error) {
        ::unlink(temporary.c_str());
        return error;
    }
    return syncFolder(folder);
}

std::filesystem::path linkTarget(const std::filesystem::path& path) {
    std::filesystem::path target = path;
    for (int links = 0; links < kMaxLinks; ++links) {
        std::error_code error;
        const std::filesystem::path next = std::filesystem::read_symlink(target, error);
        if (error) {
            break;
        }
        target = target.parent_path() / next; // an absolute one replaces the left side
    }
    return target;
}

std::optional<FileError> createFolders(const std::filesystem::path& path) {
    std::filesystem::path folder;
    for (const auto& part : path) {
        folder /= part;
        struct stat status {};
        if (::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
            continue;
        }
        if (::mkdir(folder.c_str(), kNewFolderMode) != 0) {
            FileError error = failure("creating the folder", folder);
            // Somebody else may have made it just now.
            if (::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
                return error;
            }
        }
    }
    return std::nullopt;
}

} // namespace panewright
