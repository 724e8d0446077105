#include "model/store_writer.h"

#include "base/log.h"
#include "model/window_state_archive.h"

#include <utility>

namespace panewright {

StoreWriter::~StoreWriter() {
    {
        const std::scoped_lock lock(mutex_);
        isEnding_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void StoreWriter::write(ArchiveValue snapshot) {
    {
        const std::scoped_lock lock(mutex_);
        next_ = std::move(snapshot);
        if (!thread_.joinable()) {
            thread_ = std::thread([this] { run(); });
        }
    }
    changed_.notify_all();
}

void StoreWriter::drain() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !next_ && !isWriting_; });
}

void StoreWriter::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return next_ || isEnding_; });
        if (!next_) {
            return;
        }
        {
            const ArchiveValue snapshot = *std::exchange(next_, std::nullopt);
            isWriting_ = true;
            lock.unlock();
            writeNow(snapshot);
        }
        lock.lock();
        isWriting_ = false;
        changed_.notify_all();
    }
}

void StoreWriter::writeNow(const ArchiveValue& snapshot) {
    const auto content = archivedSnapshot(snapshot);
    std::string failure = "too many to be read back";
    if (content) {
        const auto error = file_.write(*content);
        failure = error ? error->message : "";
    }
    if (!failure.empty() && failure != lastFailure_) {
        logLine("Error saving window states: " + failure);
    }
    lastFailure_ = std::move(failure);
}

} // namespace panewright
