#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace panewright {

/// Writes one plain line (UTF-8, no line break) to the system log. Callable from any thread.
void logLine(std::string_view line);

/// Where the lines go; standard error until set, and again after setting an empty one. The sink is
/// called under a lock, so it must not log.
void setLogSink(std::function<void(std::string_view line)> sink);

/// The newest lines are kept for who tells of a crash, wherever they go; a long one without its
/// end.
inline constexpr std::size_t kKeptLogLines = 32;

/// The line that is that many lines older than the newest. Empty where there is none. It takes no
/// lock and no memory, so that a signal handler may call it; a line that is being written meanwhile
/// may be mixed from two.
std::string_view keptLogLine(std::size_t age);

} // namespace panewright
