#pragma once

#include "base/log.h"

#include <string>
#include <utility>
#include <vector>

namespace panewright {

/// Collects the lines that are logged while it lives.
class CapturedLog {
public:
    CapturedLog() {
        setLogSink([this](std::string_view line) { lines_.emplace_back(line); });
    }
    ~CapturedLog() { setLogSink({}); }
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;

    /// What has been logged since the last call.
    std::vector<std::string> take() { return std::exchange(lines_, {}); }

private:
    std::vector<std::string> lines_;
};

} // namespace panewright
