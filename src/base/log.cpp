#include "base/log.h"

#include <fmt/core.h>

#include <cstdio>
#include <mutex>
#include <utility>

namespace panewright {
namespace {

struct Log {
    std::mutex mutex;
    std::function<void(std::string_view)> sink;
};

Log& log() {
    static Log log;
    return log;
}

} // namespace

void logLine(std::string_view line) {
    const std::scoped_lock lock(log().mutex);
    if (log().sink) {
        log().sink(line);
    } else {
        fmt::print(stderr, "panewright: {}\n", line);
    }
}

void setLogSink(std::function<void(std::string_view line)> sink) {
    const std::scoped_lock lock(log().mutex);
    log().sink = std::move(sink);
}

} // namespace panewright
