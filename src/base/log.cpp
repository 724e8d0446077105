#include "base/log.h"

#include <fmt/format.h>

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
        // In one write, and whether anybody still reads it or not: a terminal may have gone, a disk
        // be full.
        const auto text = fmt::format("panewright: {}\n", line);
        std::fwrite(text.data(), 1, text.size(), stderr);
    }
}

void setLogSink(std::function<void(std::string_view line)> sink) {
    const std::scoped_lock lock(log().mutex);
    log().sink = std::move(sink);
}

} // namespace panewright
