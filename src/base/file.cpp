#include "base/file.h"

#include "base/retried.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <random>
#include <system_error>
#include <utility>

namespace panewright {
namespace {

constexpr mode_t kNewFileMode = 0600;
constexpr mode_t kNewFolderMode = 0700;

/// Names that are tried for a temporary file: each is one of four thousand million.
constexpr int kMaxNames = 100;

/// As many links as the kernel follows.
constexpr int kMaxLinks = 40;

/// The error of the call that has just failed.
FileError failure(const char* step, const std::filesystem::path& path) {
    const int code = errno;
    return {code == ENOENT,
            fmt::format("{} {}: {}", step, path.string(), std::generic_category().message(code)),
            std::error_code(code, std::generic_category())};
}

/// An open file, closed when it goes.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;

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

/// The system calls the time of the last change by one name or another.
template <class Status>
FileStamp stampFrom(const Status& status) {
    const auto nanoseconds = [](const auto& time) {
        return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    };
    FileStamp stamp{static_cast<std::uint64_t>(status.st_dev),
                    static_cast<std::uint64_t>(status.st_ino), status.st_size, 0};
    if constexpr (requires { status.st_mtim; }) {
        stamp.modified = nanoseconds(status.st_mtim);
    } else {
        stamp.modified = nanoseconds(status.st_mtimespec);
    }
    return stamp;
}

std::filesystem::path folderOf(const std::filesystem::path& file) {
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

/// What the names of the temporary files beside a file begin with.
std::string temporaryPrefix(const std::filesystem::path& file) {
    return fmt::format(".{}.new-", file.filename().string());
}

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

struct NewFile {
    Descriptor descriptor;
    std::filesystem::path path;
};

/// Not open where something has that name already, and for any other failure.
Descriptor openNew(const std::filesystem::path& path) {
    return Descriptor(retried([&] {
        return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                      kNewFileMode);
    }));
}

/// An empty file of its own beside the file.
Result<NewFile, FileError> newFileBeside(const std::filesystem::path& file) {
    std::random_device random;
    std::filesystem::path path;
    for (int attempt = 0; attempt < kMaxNames; ++attempt) {
        path = folderOf(file) / fmt::format("{}{:08x}", temporaryPrefix(file), random());
        Descriptor descriptor = openNew(path);
        if (descriptor.isOpen()) {
            return NewFile{std::move(descriptor), std::move(path)};
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return failure("writing beside", file);
}

/// Fills the new file and forces it to disk. An error names the file that it is to replace.
Result<FileStamp, FileError> fill(NewFile& file, const std::filesystem::path& target,
                                  const Bytes& bytes, mode_t mode) {
    if (auto error = writeAll(file.descriptor, target, bytes)) {
        return *std::move(error);
    }
    const int number = file.descriptor.number();
    if (mode != kNewFileMode && ::fchmod(number, mode) != 0) {
        return failure("setting the mode of", target);
    }
    if (retried([&] { return ::fsync(number); }) != 0) {
        return failure("syncing", target);
    }
    struct stat status {};
    if (::fstat(number, &status) != 0) {
        return failure("looking at", target);
    }
    if (!file.descriptor.close()) {
        return failure("closing", target);
    }
    return stampFrom(status);
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

std::optional<FileStamp> stampOf(const std::filesystem::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? std::optional(stampFrom(status)) : std::nullopt;
}

Result<FileContent, FileError> readStampedFile(const std::filesystem::path& path,
                                               std::size_t maxSize) {
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    const Descriptor file(
        retried([&] { return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0) {
        return failure("opening", path);
    }
    const FileError unfit{
        false, fmt::format("{} is not a regular file of at most {} bytes", path.string(), maxSize)};
    if (!S_ISREG(status.st_mode) || std::cmp_greater(status.st_size, maxSize)) {
        return unfit;
    }
    // One byte more than it should have, so that its end is seen without growing the buffer.
    Bytes bytes(static_cast<std::size_t>(status.st_size) + 1);
    std::size_t done = 0;
    for (;;) {
        const ssize_t count = retried(
            [&] { return ::read(file.number(), bytes.data() + done, bytes.size() - done); });
        if (count < 0) {
            return failure("reading", path);
        }
        if (count == 0) {
            break;
        }
        done += static_cast<std::size_t>(count);
        if (done > maxSize) {
            return unfit; // it has grown meanwhile
        }
        if (done == bytes.size()) {
            bytes.resize(std::min(2 * done, maxSize + 1));
        }
    }
    bytes.resize(done);
    return FileContent{std::move(bytes), stampFrom(status)};
}

Result<Bytes, FileError> readFile(const std::filesystem::path& path, std::size_t maxSize) {
    auto content = readStampedFile(path, maxSize);
    if (!content) {
        return content.error();
    }
    return std::move(content).value().bytes;
}

Result<FileStamp, FileError>
writeFileAtomically(const std::filesystem::path& path, const Bytes& bytes,
                    const std::function<std::optional<FileError>()>& beforeMove) {
    const std::filesystem::path target = linkTarget(path);
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) {
        return failure("looking at", target);
    }
    if (exists && !S_ISREG(status.st_mode)) {
        return FileError{false, fmt::format("{} is not a regular file", target.string())};
    }
    auto created = newFileBeside(target);
    if (!created) {
        return created.error();
    }
    NewFile file = std::move(created).value();
    auto written = fill(file, target, bytes, exists ? status.st_mode & 07777 : kNewFileMode);
    if (written && beforeMove) {
        if (auto refused = beforeMove()) {
            written = *std::move(refused);
        }
    }
    if (written && ::rename(file.path.c_str(), target.c_str()) != 0) {
        written = failure("moving into place", target);
    }
    if (!written) {
        ::unlink(file.path.c_str());
    } else if (auto error = syncFolder(folderOf(target))) {
        return *std::move(error);
    }
    return written;
}

Result<std::filesystem::path, FileError> writeNumberedFile(const std::filesystem::path& prefix,
                                                           const Bytes& bytes) {
    for (int number = 1; number <= kMaxFileNumber; ++number) {
        std::filesystem::path path = fmt::format("{}{}", prefix.string(), number);
        NewFile file{openNew(path), path};
        if (file.descriptor.isOpen()) {
            if (const auto written = fill(file, path, bytes, kNewFileMode); !written) {
                ::unlink(path.c_str());
                return written.error();
            }
            return path;
        }
        if (errno != EEXIST) {
            return failure("creating", path);
        }
    }
    return FileError{false, fmt::format("{}: no number is free", prefix.string())};
}

void removeLeftovers(const std::filesystem::path& path) {
    const std::filesystem::path target = linkTarget(path);
    const std::string prefix = temporaryPrefix(target);
    std::error_code ignored;
    for (std::filesystem::directory_iterator file(folderOf(target), ignored), end; file != end;
         file.increment(ignored)) {
        if (file->path().filename().string().starts_with(prefix)) {
            std::filesystem::remove(file->path(), ignored);
        }
    }
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
