#pragma once

#include "base/result.h"

#include <filesystem>
#include <optional>
#include <string>

namespace panewright {

/// Why a folder is not to be had, in words for the log.
struct FolderError {
    std::string message;
};

/// The folders that the desktop has set aside for programs. Callable from any thread.
class StandardFolders {
public:
    virtual ~StandardFolders() = default;

    /// The folder in which programs keep the user's data, each in a folder of its own; created when
    /// missing.
    virtual Result<std::filesystem::path, FolderError> applicationSupportDirectory() const = 0;

    /// Creates the folder and the ones above it that are missing. Harmless when it exists. Nothing
    /// when all went well.
    virtual std::optional<FolderError>
    createDirectory(const std::filesystem::path& directory) const = 0;
};

} // namespace panewright
