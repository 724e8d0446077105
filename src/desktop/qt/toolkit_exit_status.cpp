#include "desktop/qt/toolkit_exit_status.h"

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace panewright {
namespace {

std::optional<int>& statusAtExit() {
    static std::optional<int> status;
    return status;
}

void endWithThatStatus() {
    if (const auto status = statusAtExit()) {
        std::fflush(nullptr);
        std::_Exit(*status); // the status of exit() itself cannot be changed
    }
}

} // namespace

ToolkitExitStatus::ToolkitExitStatus(int status) {
    statusAtExit() = status;
    std::atexit(endWithThatStatus);
}

ToolkitExitStatus::~ToolkitExitStatus() {
    statusAtExit() = std::nullopt;
}

} // namespace panewright
