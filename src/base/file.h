#pragma once

#include "base/bytes.h"
#include "base/result.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace panewright {

/// The largest file that readFile() takes unless told otherwise, in bytes.
inline constexpr std::size_t kMaxFileSize = std::size_t{256} << 20;

/// Why a file could not be read or written, with the step and the system's text for the log.
struct FileError {
    /// Nothing stands under the name, or it is a link that leads to nothing.
    bool isNoSuchFile = false;
    std::string message;
};

/// The whole content of a regular file of at most `maxSize` bytes. Callable from any thread.
Result<Bytes, FileError> readFile(const std::filesystem::path& path,
                                  std::size_t maxSize = kMaxFileSize);

/// Replaces the content so that, whatever fails or whenever the machine stops, the file holds
/// either all of the old content or all of the new: it is written beside the file, forced to disk
/// and moved into place. A symbolic link is written through to its target. A new file gets mode
/// 0600, an existing one keeps its own. Nothing when all went well, also on disk. Callable from any
/// thread, but not for the same file from two.
std::optional<FileError> writeFileAtomically(const std::filesystem::path& path, const Bytes& bytes);

/// Where the symbolic links that start at `path` end; the path itself when it is none.
std::filesystem::path linkTarget(const std::filesystem::path& path);

/// Creates the folder and the ones above it that are missing, with mode 0700. An existing folder is
/// no error.
std::optional<FileError> createFolders(const std::filesystem::path& path);

} // namespace panewright
