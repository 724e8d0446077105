#pragma once

#include "base/file.h"

#include <cerrno>
#include <string>
#include <system_error>

namespace panewright {

/// Why the store could not be read or written, by what a person can do about it.
enum class StoreFailureCause {
    kDamaged,       // it is there, and holds no states
    kTooLarge,      // the states hold more than could be read back
    kNotPermitted,  // the file, its folder or the whole disk may not be read or written
    kDiskFull,      // or the user's share of it
    kHeldByAnother, // another process has the lock, and may let it go
    kNoFolder,      // nor can one be made
    kOther,
};

struct StoreFailure {
    StoreFailureCause cause = StoreFailureCause::kOther;
    /// For the log: the step and the system's text.
    std::string message;
};

inline StoreFailure storeFailureFrom(const FileError& error) {
    using enum StoreFailureCause;
    const auto is = [&](std::errc code) { return error.code == code; };
    const bool isNotPermitted = is(std::errc::permission_denied) ||
                                is(std::errc::operation_not_permitted) ||
                                is(std::errc::read_only_file_system);
    const bool isDiskFull = is(std::errc::no_space_on_device) ||
                            error.code == std::error_code(EDQUOT, std::generic_category());
    return {isNotPermitted ? kNotPermitted : isDiskFull ? kDiskFull : kOther, error.message};
}

} // namespace panewright
