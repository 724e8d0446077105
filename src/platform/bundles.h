#pragma once

#include "platform/application_moving.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// What a system whose programs are bundles knows about files and programs, for those who move
/// bundles. Paths are absolute. Main thread only.
class Bundles {
public:
    enum class Domain { kLocal, kAll };

    /// Of the file system that a folder is on.
    struct FileSystem {
        bool isRoot = false;
        std::string mountedFrom; // a device
    };

    virtual ~Bundles() = default;

    virtual std::filesystem::path mainBundle() const = 0;
    /// What the toolkit calls its version, such as 1038.36; it tells systems apart.
    virtual double toolkitVersion() const = 0;

    virtual std::vector<std::filesystem::path> applicationsFolders(Domain domain) const = 0;
    virtual std::vector<std::filesystem::path> downloadsFolders() const = 0;
    /// Without symbolic links; the path itself where that cannot be had.
    virtual std::filesystem::path resolved(const std::filesystem::path& path) const = 0;

    /// Nil if that cannot be had.
    virtual std::optional<FileSystem> fileSystemOf(const std::filesystem::path& folder) const = 0;
    virtual bool exists(const std::filesystem::path& path) const = 0;
    virtual bool isWritable(const std::filesystem::path& path) const = 0;

    // These give nothing when all went well.
    virtual std::optional<MovingError> copyItem(const std::filesystem::path& from,
                                                const std::filesystem::path& to) = 0;
    virtual std::optional<MovingError> removeItem(const std::filesystem::path& path) = 0;
    /// Moves what has the name in the folder to the trash.
    virtual std::optional<MovingError> recycle(const std::filesystem::path& folder,
                                               const std::filesystem::path& name) = 0;

    /// The executables of the programs that run.
    virtual std::vector<std::filesystem::path> runningExecutables() const = 0;
    virtual int processIdentifier() const = 0;
};

} // namespace panewright
