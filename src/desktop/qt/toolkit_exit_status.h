#pragma once

namespace panewright {

/// While it lives, the status that the process ends with when somebody calls exit(): the toolkit
/// does, with a status of its own, when it loses the X server. What is static and was made later
/// has been destroyed by then. One at a time.
class ToolkitExitStatus {
public:
    explicit ToolkitExitStatus(int status);
    ~ToolkitExitStatus();
    ToolkitExitStatus(const ToolkitExitStatus&) = delete;
    ToolkitExitStatus& operator=(const ToolkitExitStatus&) = delete;
};

} // namespace panewright
