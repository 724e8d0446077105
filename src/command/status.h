#pragma once

#include <string>
#include <sysexits.h>

namespace panewright::command {

// What the process ends with, beside EXIT_SUCCESS. All are documented in packaging/panewright.1.

/// No such state, or nothing was moved.
constexpr int kStatusNothingDone = 1;
/// Panewright does not run, or cannot be reached over the session bus, or does not answer in time.
constexpr int kStatusNotRunning = 3;
constexpr int kStatusWrongUse = EX_USAGE;
/// The desktop program is not installed beside the command, or does not start; or libdbus is
/// missing.
constexpr int kStatusNoProgram = EX_UNAVAILABLE;
/// Standard output takes nothing, as on a full disk.
constexpr int kStatusCannotWrite = EX_IOERR;
/// Panewright refuses the call, or answers what this command does not understand.
constexpr int kStatusNotUnderstood = EX_PROTOCOL;

/// Why a request failed: a line for people, without its end, and what to end with.
struct Failure {
    int status = kStatusNotUnderstood;
    std::string message;
};

} // namespace panewright::command
