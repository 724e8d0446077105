#pragma once

#include <filesystem>

namespace panewright {

class StandardFolders;

/// Says that this process is the one that works on the store: a lock on "keyEvents.data.lock"
/// beside it, which the system takes back when the process ends, however it ends. The file stays.
class StoreLock {
public:
    enum class Outcome {
        kHeld,
        /// Another process has it, so the store must not be touched, not even read.
        kHeldByAnother,
        /// The folder has no locks or may not be written. Nobody else can hold one there either.
        kUnavailable,
    };

    /// Tries once, without waiting. A reason why there is no lock to be had is logged.
    explicit StoreLock(const StandardFolders& folders);
    ~StoreLock();
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;

    Outcome outcome() const { return outcome_; }

private:
    Outcome outcome_ = Outcome::kUnavailable;
    int descriptor_ = -1;
};

} // namespace panewright
