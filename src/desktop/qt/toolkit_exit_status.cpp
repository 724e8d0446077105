#include "desktop/qt/toolkit_exit_status.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

namespace panewright {
namespace {

struct Ending {
    int status = 0;
    std::function<void()> finish;
};

std::optional<Ending>& ending() {
    static std::optional<Ending> ending;
    return ending;
}

void endInThatWay() {
    if (const auto way = ending()) {
        way->finish();
        std::fflush(nullptr);
        std::_Exit(way->status); // the status of exit() itself cannot be changed
    }
}

} // namespace

ToolkitExitStatus::ToolkitExitStatus(int status, std::function<void()> finish) {
    ending() = Ending{status, std::move(finish)};
    std::atexit(endInThatWay);
}

ToolkitExitStatus::~ToolkitExitStatus() {
    ending() = std::nullopt;
}

} // namespace panewright
