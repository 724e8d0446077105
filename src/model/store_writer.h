#pragma once

#include "archive/archive_value.h"
#include "model/store_file.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace panewright {

class BackgroundWork;

/// Writes snapshots to the store file on a thread of its own, one after the other. A snapshot that
/// has not been begun when a newer one comes is skipped. A failure is logged once with its cause,
/// until a write succeeds or fails for another cause. The next snapshot tries again; where another
/// process works on the store, so does this one from time to time; and so it does at the end, when
/// what still cannot be written is kept beside the store.
class StoreWriter {
public:
    /// Both must outlive the writer, and the file be left to it between write() and drain().
    StoreWriter(StoreFile& file, const BackgroundWork& background)
        : file_(file), background_(background) {}
    ~StoreWriter();
    StoreWriter(const StoreWriter&) = delete;
    StoreWriter& operator=(const StoreWriter&) = delete;

    /// Returns at once. The first call starts the thread.
    void write(ArchiveValue snapshot);

    /// Why the newest snapshot that was tried is not on the disk; nil when it is, or none was.
    std::optional<StoreFailure> failure() const;

    /// Returns when the newest snapshot has been written or has failed.
    void drain();

private:
    void run();
    void waitForWork(std::unique_lock<std::mutex>& lock);
    /// Nil when all went well.
    std::optional<StoreFailure> writeNow(const ArchiveValue& snapshot);
    void logOnce(const std::optional<StoreFailure>& failure);
    void keepUnsaved();

    StoreFile& file_;
    const BackgroundWork& background_;

    // The thread's own.
    std::string lastFailure_;
    std::optional<ArchiveValue> unsaved_;

    mutable std::mutex mutex_; // guards what follows
    std::condition_variable changed_;
    std::optional<ArchiveValue> next_;
    std::optional<StoreFailure> failure_;
    bool isWriting_ = false;
    bool isEnding_ = false;

    std::thread thread_;
};

} // namespace panewright
