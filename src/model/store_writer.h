#pragma once

#include "archive/archive_value.h"
#include "model/store_file.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace panewright {

/// Writes snapshots to the store file on a thread of its own, one after the other. A snapshot that
/// has not been begun when a newer one comes is skipped. A failure is logged once with its cause,
/// until a write succeeds or fails for another cause; the next snapshot tries again.
class StoreWriter {
public:
    /// The file must outlive the writer and be left to it between write() and drain().
    explicit StoreWriter(StoreFile& file) : file_(file) {}
    ~StoreWriter();
    StoreWriter(const StoreWriter&) = delete;
    StoreWriter& operator=(const StoreWriter&) = delete;

    /// Returns at once. The first call starts the thread.
    void write(ArchiveValue snapshot);

    /// Returns when the newest snapshot has been written or has failed.
    void drain();

private:
    void run();
    void writeNow(const ArchiveValue& snapshot);

    StoreFile& file_;
    std::string lastFailure_; // the thread's own

    std::mutex mutex_; // guards what follows
    std::condition_variable changed_;
    std::optional<ArchiveValue> next_;
    bool isWriting_ = false;
    bool isEnding_ = false;

    std::thread thread_;
};

} // namespace panewright
