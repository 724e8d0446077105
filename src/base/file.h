#pragma once

#include "base/bytes.h"
#include "base/result.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <system_error>

namespace panewright {

/// The largest file that readFile() takes unless told otherwise, in bytes.
inline constexpr std::size_t kMaxFileSize = std::size_t{256} << 20;

/// Why a file could not be read or written, with the step and the system's text for the log.
struct FileError {
    /// Nothing stands under the name, or it is a link that leads to nothing.
    bool isNoSuchFile = false;
    std::string message;
    /// Why the system refused; none where it did not.
    std::error_code code{};
};

/// Tells one version of a file from another, as far as the file system does. Another link to the
/// file changes nothing.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    /// When the content last changed, in ns since 1970.
    std::int64_t modified = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// Of what stands under the name, links followed; nil when nothing does.
std::optional<FileStamp> stampOf(const std::filesystem::path& path);

struct FileContent {
    Bytes bytes;
    FileStamp stamp;
};

/// The whole content of a regular file of at most `maxSize` bytes. Callable from any thread.
Result<FileContent, FileError> readStampedFile(const std::filesystem::path& path,
                                               std::size_t maxSize = kMaxFileSize);
Result<Bytes, FileError> readFile(const std::filesystem::path& path,
                                  std::size_t maxSize = kMaxFileSize);

/// Replaces the content so that, whatever fails or whenever the machine stops, the file holds
/// either all of the old content or all of the new: it is written beside the file, under a name
/// that nobody else uses, forced to disk and moved into place. A symbolic link is written through
/// to its target. A new file gets mode 0600, an existing one keeps its own. Gives the stamp of what
/// was written. `beforeMove` is called when all is on disk and only the move is left; an error of
/// it leaves everything as it was. Callable from any thread.
Result<FileStamp, FileError>
writeFileAtomically(const std::filesystem::path& path, const Bytes& bytes,
                    const std::function<std::optional<FileError>()>& beforeMove = {});

/// So many numbers are tried for a file that is kept under a name of its own.
inline constexpr int kMaxFileNumber = 10'000;

/// Writes the content to the first of the files "PREFIX1", "PREFIX2" and so on that does not exist,
/// of two that do so at once each to its own. Gives its name.
Result<std::filesystem::path, FileError> writeNumberedFile(const std::filesystem::path& prefix,
                                                           const Bytes& bytes);

/// Removes what such writes have left beside the file when the machine stopped during them. To be
/// called only while nobody else writes the file.
void removeLeftovers(const std::filesystem::path& path);

/// Where the symbolic links that start at `path` end; the path itself when it is none.
std::filesystem::path linkTarget(const std::filesystem::path& path);

/// Creates the folder and the ones above it that are missing, with mode 0700. An existing folder is
/// no error.
std::optional<FileError> createFolders(const std::filesystem::path& path);

} // namespace panewright
