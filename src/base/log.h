#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace panewright {

/// Writes one plain line (UTF-8, no line break) to the system log. Callable from any thread.
void logLine(std::string_view line);

/// Where the lines go; standard error until set, and again after setting an empty one. The sink is
/// called under a lock, so it must not log.
void setLogSink(std::function<void(std::string_view line)> sink);

} // namespace panewright
