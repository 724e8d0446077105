#pragma once

#include "base/log.h"

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace panewright {

/// Collects the lines that are logged while it lives.
class CapturedLog {
public:
    CapturedLog() {
        setLogSink([this](std::string_view line) {
            const std::scoped_lock lock(mutex_);
            lines_.emplace_back(line);
        });
    }
    ~CapturedLog() { setLogSink({}); }
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;

    /// What has been logged since the last call.
    std::vector<std::string> take() {
        const std::scoped_lock lock(mutex_);
        return std::exchange(lines_, {});
    }

private:
    std::mutex mutex_;
    std::vector<std::string> lines_;
};

} // namespace panewright
