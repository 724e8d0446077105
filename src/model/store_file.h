#pragma once

#include "base/bytes.h"
#include "base/file.h"
#include "base/result.h"
#include "model/store_failure.h"
#include "model/store_location.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

class StoreLock;

/// The file of the store. One thread at a time.
class StoreFile {
public:
    /// Both must outlive it; the lock is its own to use from now on.
    StoreFile(const StandardFolders& folders, StoreLock& lock) : folders_(folders), lock_(lock) {}

    /// Where it stands, or would; empty where there is no folder for it. Callable from any thread.
    std::filesystem::path path() const { return quietStoreFilePath(folders_).value_or(""); }

    /// The whole content. A folder that is not to be had, which is logged, counts as no such file.
    Result<Bytes, FileError> read();

    /// What was read is in the program's hands now, so the next write may replace it.
    void accept();

    /// Takes the lock again if it is gone. Nil when write() may go on.
    std::optional<StoreFailure> checkLock();

    /// Replaces the content atomically, under the lock if there is one to be had. What stands there
    /// and would be lost is set aside first, under the next free number: as
    /// "keyEvents.data.unreadable-1" what read() gave and nobody accepted, as
    /// "keyEvents.data.changed-1" what somebody else has written since. Nothing when all went well.
    std::optional<StoreFailure> write(const Bytes& content);

    /// Keeps the content beside the store, as "keyEvents.data.unsaved-1" or the next free number,
    /// whoever has the lock. Gives the name.
    Result<std::filesystem::path, FileError> keepBeside(const Bytes& content) const;

private:
    std::optional<FileError> setAsideWhatWouldBeLost(const std::filesystem::path& target);
    bool isOwnContent(const std::filesystem::path& target) const;

    const StandardFolders& folders_;
    StoreLock& lock_;
    /// What read() found; nil when that was nothing, or no file.
    std::optional<FileStamp> read_;
    std::uint32_t readChecksum_ = 0;
    /// Whether what was found still waits to be accepted.
    bool isUnaccepted_ = false;
    /// What may be replaced: read and accepted, written, or set aside already.
    std::optional<FileStamp> known_;
    /// Of what was read and accepted, or written, last, and of what a write that failed may have
    /// left in place all the same.
    std::optional<std::uint32_t> knownChecksum_;
    std::optional<std::uint32_t> attemptedChecksum_;
};

} // namespace panewright
