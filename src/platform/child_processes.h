#pragma once

#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// How a child process ended.
struct ChildEnd {
    /// Nil when a signal ended it.
    std::optional<int> exitStatus;
    std::string standardOutput;
};

/// Starts other programs. The first argument is the absolute path of the program; no shell reads
/// the others. Main thread only.
class ChildProcesses {
public:
    virtual ~ChildProcesses() = default;

    /// Runs the program and waits for its end; nil if it cannot be started.
    virtual std::optional<ChildEnd> run(const std::vector<std::string>& arguments) = 0;

    /// Starts the program, which may outlive this one.
    virtual void start(const std::vector<std::string>& arguments) = 0;
};

} // namespace panewright
