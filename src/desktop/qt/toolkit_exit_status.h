#pragma once

#include <functional>

namespace panewright {

/// While it lives, how the process ends when somebody calls exit(): the toolkit does, with a status
/// of its own, when it loses the X server. Made last, right before the main loop runs: then it
/// comes before all that is static, of which some would wait for others. One at a time.
class ToolkitExitStatus {
public:
    /// `finish` does what is still to be done.
    ToolkitExitStatus(int status, std::function<void()> finish);
    ~ToolkitExitStatus();
    ToolkitExitStatus(const ToolkitExitStatus&) = delete;
    ToolkitExitStatus& operator=(const ToolkitExitStatus&) = delete;
};

} // namespace panewright
