#pragma once

#include "model/store_location.h"

#include <filesystem>
#include <string>

namespace panewright {

/// Says that this process is the one that works on the store: a lock on "keyEvents.data.lock"
/// beside it, which the system takes back when the process ends, however it ends. The file stays,
/// and tells where the holder runs. One thread at a time.
class StoreLock {
public:
    enum class Outcome {
        kHeld,
        /// Another process has it, so the store must not be touched, not even read.
        kHeldByAnother,
        /// The folder has no locks, or it or the file may not be written.
        kUnavailable,
    };

    /// Tries once, without waiting. `holder` is what another process is to read of this one.
    StoreLock(const StandardFolders& folders, std::string holder);
    ~StoreLock();
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;

    /// Takes the lock unless it is held. A file that does not stand under its name any more, as
    /// when somebody deleted the folder, holds nothing. Where no lock can be had, the reason is
    /// logged once.
    Outcome take();

    Outcome outcome() const { return outcome_; }

    /// What the process that holds the lock says of itself; empty where nobody knows.
    std::string holder() const;

private:
    std::filesystem::path file() const;
    bool isUnderItsName() const;
    Outcome tryOnce();
    void release();
    void logOnce(const std::string& reason);

    const StandardFolders& folders_;
    std::string holder_;
    Outcome outcome_ = Outcome::kUnavailable;
    int descriptor_ = -1;
    std::string lastLogged_;
};

} // namespace panewright
