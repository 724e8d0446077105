#include "model/store_file.h"

#include "model/store_lock.h"

#include <zlib.h>

#include <fmt/format.h>

#include <system_error>

namespace panewright {
namespace {

namespace fs = std::filesystem;

std::uint32_t checksumOf(const Bytes& bytes) {
    return static_cast<std::uint32_t>(crc32_z(0, bytes.data(), bytes.size()));
}

bool hasNoHardLinks(const std::error_code& error) {
    return error == std::errc::operation_not_permitted || error == std::errc::not_supported ||
           error == std::errc::operation_not_supported ||
           error == std::errc::function_not_supported;
}

/// Keeps the file under the first of the names "file.KIND-1", "file.KIND-2" and so on that is free
/// as well. It disappears from its own name only where it can have no second one.
std::optional<FileError> setAside(const fs::path& file, std::string_view kind) {
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int number = 1; number <= kMaxFileNumber && error == std::errc::file_exists; ++number) {
        const fs::path aside = fmt::format("{}.{}-{}", file.string(), kind, number);
        std::error_code ignored;
        if (fs::symlink_status(aside, ignored).type() != fs::file_type::not_found) {
            continue;
        }
        fs::create_hard_link(file, aside, error);
        if (hasNoHardLinks(error)) {
            fs::rename(file, aside, error);
        }
    }
    if (!error) {
        return std::nullopt;
    }
    return FileError{false, fmt::format("setting {} aside: {}", file.string(), error.message()),
                     error};
}

} // namespace

Result<Bytes, FileError> StoreFile::read() {
    read_ = known_ = std::nullopt;
    knownChecksum_ = attemptedChecksum_ = std::nullopt;
    const auto file = storeFilePath(folders_);
    if (!file) {
        return FileError{true, "no folder for the store"};
    }
    auto content = readStampedFile(*file);
    isUnaccepted_ = content || !content.error().isNoSuchFile;
    if (!content) {
        return content.error();
    }
    auto [bytes, stamp] = std::move(content).value();
    read_ = stamp;
    readChecksum_ = checksumOf(bytes);
    return std::move(bytes);
}

void StoreFile::accept() {
    known_ = read_;
    knownChecksum_ = readChecksum_;
    isUnaccepted_ = false;
}

std::optional<StoreFailure> StoreFile::checkLock() {
    if (lock_.take() == StoreLock::Outcome::kHeldByAnother) {
        return StoreFailure{StoreFailureCause::kHeldByAnother,
                            "another Panewright works on the store"};
    }
    return std::nullopt;
}

std::optional<StoreFailure> StoreFile::write(const Bytes& content) {
    const auto file = storeFilePath(folders_);
    if (!file) {
        return StoreFailure{StoreFailureCause::kNoFolder, "no folder for the store"};
    }
    if (auto error = checkLock()) {
        return error;
    }
    if (lock_.outcome() == StoreLock::Outcome::kHeld) {
        removeLeftovers(*file);
    }
    const fs::path target = linkTarget(*file);
    if (const auto error = setAsideWhatWouldBeLost(target)) {
        return storeFailureFrom(*error);
    }
    attemptedChecksum_ = checksumOf(content);
    // The disk may take its time, in which another may have come.
    std::optional<StoreFailure> late;
    const auto written = writeFileAtomically(*file, content, [&]() -> std::optional<FileError> {
        late = checkLock();
        return late ? FileError{false, late->message} : setAsideWhatWouldBeLost(target);
    });
    if (!written) {
        return late ? *late : storeFailureFrom(written.error());
    }
    known_ = written.value();
    knownChecksum_ = attemptedChecksum_;
    return std::nullopt;
}

std::optional<FileError> StoreFile::setAsideWhatWouldBeLost(const fs::path& target) {
    const auto stamp = stampOf(target);
    if (!stamp || stamp == known_) {
        return std::nullopt;
    }
    if (isOwnContent(target)) {
        known_ = stamp;
        return std::nullopt;
    }
    const bool isAsRead = isUnaccepted_ && (!read_ || read_ == stamp);
    auto error = setAside(target, isAsRead ? "unreadable" : "changed");
    if (!error) {
        known_ = stamp; // kept in any case, should the writing fail
        isUnaccepted_ = false;
    }
    return error;
}

/// Whether the file holds what this program read or wrote: somebody has only touched it, or copied
/// it back.
bool StoreFile::isOwnContent(const fs::path& target) const {
    const auto content = knownChecksum_ || attemptedChecksum_
                             ? readFile(target)
                             : Result<Bytes, FileError>(FileError{});
    if (!content) {
        return false;
    }
    const auto checksum = checksumOf(content.value());
    return knownChecksum_ == checksum || attemptedChecksum_ == checksum;
}

Result<fs::path, FileError> StoreFile::keepBeside(const Bytes& content) const {
    const auto file = storeFilePath(folders_);
    if (!file) {
        return FileError{true, "no folder for the store"};
    }
    return writeNumberedFile(fmt::format("{}.unsaved-", file->string()), content);
}

} // namespace panewright
