#pragma once

namespace panewright::command {

/// Ends the process with kStatusNotRunning, and a line on standard error, when more than 5 s pass
/// while it exists: whatever hangs, the program, the bus, or the way to it. One at a time.
class TimeLimit {
public:
    TimeLimit();
    ~TimeLimit();
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;
};

} // namespace panewright::command
