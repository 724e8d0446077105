#pragma once

#include "support/eventually.h"
#include "support/private_home.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace panewright::test {

/// A program that dies with this object, and with the test program however that ends.
class ChildProcess {
public:
    /// The program is looked for in PATH. It sees the given environment and no other.
    ChildProcess(std::vector<std::string> arguments, const Environment& environment);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return pid_; }
    void sendSignal(int signal) const;
    /// As a crash would end it.
    void kill();

    /// Empty while it runs; the exit code, or -N when signal N ended it.
    std::optional<int> exitStatus();
    std::optional<int> waitForEnd(std::chrono::milliseconds timeout = kPatience);

    /// All that was written so far.
    std::string standardOutput() const { return content(output_); }
    std::string standardError() const { return content(error_); }

    /// Waits for the first line on standard output; throws when there is none.
    std::string firstLine();
    /// Waits for a line on standard error that starts so; false when the program ends first.
    bool waitForErrorLine(std::string_view start);

private:
    static std::string content(int file);

    pid_t pid_ = -1;
    int output_ = -1;
    int error_ = -1;
    std::optional<int> exitStatus_;
};

/// A session bus, which prints its address first.
inline const std::vector<std::string> kSessionBus{"dbus-daemon", "--session", "--nofork",
                                                  "--nosyslog", "--print-address=1"};

/// Runs a command to its end and gives what it printed; throws when that is not exit code 0.
std::string runToEnd(std::vector<std::string> arguments, const Environment& environment);

} // namespace panewright::test
