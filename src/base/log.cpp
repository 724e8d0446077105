#include "base/log.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <mutex>
#include <utility>

namespace panewright {
namespace {

struct KeptLine {
    std::array<char, 240> text;
    std::size_t size;
};

// Made before the program runs, and never freed: a crash comes at any time.
constinit std::array<KeptLine, kKeptLogLines> keptLines{};
constinit std::atomic<std::size_t> countOfLines{0};

/// Under the log's lock.
void keep(std::string_view line) {
    const auto count = countOfLines.load(std::memory_order_relaxed);
    auto& kept = keptLines[count % kKeptLogLines];
    kept.size = std::min(line.size(), kept.text.size());
    std::copy_n(line.begin(), kept.size, kept.text.begin());
    countOfLines.store(count + 1, std::memory_order_release);
}

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
    keep(line);
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

std::string_view keptLogLine(std::size_t age) {
    const auto count = countOfLines.load(std::memory_order_acquire);
    if (age >= std::min(count, kKeptLogLines)) {
        return {};
    }
    const auto& kept = keptLines[(count - 1 - age) % kKeptLogLines];
    return {kept.text.data(), kept.size};
}

} // namespace panewright
