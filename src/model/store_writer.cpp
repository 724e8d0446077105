#include "model/store_writer.h"

#include "base/log.h"
#include "model/store_content.h"
#include "platform/background_work.h"

#include <chrono>
#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// How often a store is looked at that another process works on.
constexpr auto kRetryInterval = 2s;

} // namespace

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
            thread_ = std::thread([this] {
                background_.beginThread();
                run();
            });
        }
    }
    changed_.notify_all();
}

std::optional<StoreFailure> StoreWriter::failure() const {
    const std::scoped_lock lock(mutex_);
    return failure_;
}

void StoreWriter::drain() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !next_ && !isWriting_; });
}

void StoreWriter::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        waitForWork(lock);
        const bool isLast = !next_ && isEnding_;
        if (next_) {
            unsaved_ = std::exchange(next_, std::nullopt);
        }
        isWriting_ = true;
        auto failure = failure_;
        lock.unlock();
        if (unsaved_) {
            failure = writeNow(*unsaved_);
            logOnce(failure);
            if (!failure) {
                unsaved_ = std::nullopt;
            } else if (isLast) {
                keepUnsaved();
            }
        }
        lock.lock();
        failure_ = std::move(failure);
        isWriting_ = false;
        changed_.notify_all();
        if (isLast) {
            return;
        }
    }
}

/// Until there is a snapshot, the end, or another try to be made.
void StoreWriter::waitForWork(std::unique_lock<std::mutex>& lock) {
    const auto hasWork = [this] { return next_ || isEnding_; };
    if (unsaved_ && failure_ && failure_->cause == StoreFailureCause::kHeldByAnother) {
        changed_.wait_for(lock, kRetryInterval, hasWork);
    } else {
        changed_.wait(lock, hasWork);
    }
}

std::optional<StoreFailure> StoreWriter::writeNow(const ArchiveValue& snapshot) {
    if (auto error = file_.checkLock()) {
        return error; // before all the work
    }
    const auto content = archivedSnapshot(snapshot);
    return content ? file_.write(*content)
                   : StoreFailure{StoreFailureCause::kTooLarge,
                                  "they hold more than could be read back"};
}

void StoreWriter::keepUnsaved() {
    const auto content = archivedSnapshot(*unsaved_);
    if (!content) {
        return; // which has been logged
    }
    const auto kept = file_.keepBeside(*content);
    logLine(kept ? "The window states are in " + kept.value().string()
                 : "Error keeping window states: " + kept.error().message);
}

void StoreWriter::logOnce(const std::optional<StoreFailure>& failure) {
    const auto message = failure ? failure->message : std::string();
    if (failure && message != lastFailure_) {
        logLine("Error saving window states: " + message);
    }
    lastFailure_ = message;
}

} // namespace panewright
