#pragma once

#include "platform/standard_folders.h"

#include <utility>

namespace panewright {

/// An application-support folder wherever the test wants it: a real folder, since the store writes
/// real files. Either operation can be told to fail.
class MemoryStandardFolders : public StandardFolders {
public:
    explicit MemoryStandardFolders(std::filesystem::path applicationSupport)
        : applicationSupport_(std::move(applicationSupport)) {}

    Result<std::filesystem::path, FolderError> applicationSupportDirectory() const override {
        if (supportError) {
            return *supportError;
        }
        if (const auto error = createDirectory(applicationSupport_)) {
            return *error;
        }
        return applicationSupport_;
    }

    std::optional<FolderError>
    createDirectory(const std::filesystem::path& directory) const override {
        if (createError) {
            return createError;
        }
        std::error_code error;
        std::filesystem::create_directories(directory, error);
        return error ? std::optional(FolderError{error.message()}) : std::nullopt;
    }

    std::optional<FolderError> supportError;
    std::optional<FolderError> createError;

private:
    std::filesystem::path applicationSupport_;
};

} // namespace panewright
