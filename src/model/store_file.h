#pragma once

#include "base/bytes.h"
#include "base/file.h"
#include "base/result.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace panewright {

class StandardFolders;

/// The program's folder in the application-support folder, and the store's file in it.
inline constexpr std::string_view kStoreFolderName = "Panewright";
inline constexpr std::string_view kStoreFileName = "keyEvents.data";

/// The file of the store. One thread at a time.
class StoreFile {
public:
    /// The folders must outlive it.
    explicit StoreFile(const StandardFolders& folders) : folders_(folders) {}

    /// The whole content. A folder that is not to be had, which is logged, counts as no such file.
    Result<Bytes, FileError> read();

    /// What was read is in the program's hands now, so the next write may replace it.
    void accept() { isKnown_ = true; }

    /// Replaces the content atomically. A file that stands there but was neither accepted nor
    /// written by us is set aside first, as "keyEvents.data.unreadable-1" or the next free number.
    /// Nothing when all went well.
    std::optional<FileError> write(const Bytes& content);

private:
    /// The folder is looked up, and created, each time: it may come and go.
    std::optional<std::filesystem::path> path() const;

    const StandardFolders& folders_;
    bool isKnown_ = false;
};

} // namespace panewright
