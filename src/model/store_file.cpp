#include "model/store_file.h"

#include "model/application_folders.h"

#include <fmt/format.h>

#include <system_error>

namespace panewright {
namespace {

constexpr int kMaxSetAside = 10'000;

/// Keeps the file under the next free name as well; it disappears from its own name only where the
/// file system has no hard links.
std::optional<FileError> setAside(const std::filesystem::path& file) {
    std::error_code error;
    for (int number = 1; number <= kMaxSetAside; ++number) {
        const std::filesystem::path aside = fmt::format("{}.unreadable-{}", file.string(), number);
        if (std::filesystem::symlink_status(aside, error).type() !=
            std::filesystem::file_type::not_found) {
            continue;
        }
        std::filesystem::create_hard_link(file, aside, error);
        if (error) {
            std::filesystem::rename(file, aside, error);
        }
        break;
    }
    if (error) {
        return FileError{false,
                         fmt::format("setting {} aside: {}", file.string(), error.message())};
    }
    return std::nullopt;
}

} // namespace

Result<Bytes, FileError> StoreFile::read() {
    const auto file = path();
    if (!file) {
        return FileError{true, "no folder for the store"};
    }
    isKnown_ = false;
    return readFile(*file);
}

std::optional<FileError> StoreFile::write(const Bytes& content) {
    const auto file = path();
    if (!file) {
        return FileError{true, "no folder for the store"};
    }
    std::error_code ignored; // what cannot be looked at cannot be written either
    const std::filesystem::path target = linkTarget(*file);
    if (!isKnown_ && std::filesystem::exists(target, ignored)) {
        if (auto error = setAside(target)) {
            return error;
        }
        isKnown_ = true; // kept in any case, should the writing fail
    }
    auto error = writeFileAtomically(*file, content);
    isKnown_ = isKnown_ || !error;
    return error;
}

std::optional<std::filesystem::path> StoreFile::path() const {
    const auto folder = applicationSupportDirectoryURLWithDirName(folders_, kStoreFolderName);
    return folder ? std::optional(*folder / kStoreFileName) : std::nullopt;
}

} // namespace panewright
