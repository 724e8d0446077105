#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace panewright {

/// Where a process of the program runs, as it writes that down for others.
struct RunningPlace {
    /// What $DISPLAY names, without the screen; empty without one.
    std::string display;
    int processId = 0;

    friend bool operator==(const RunningPlace&, const RunningPlace&) = default;
};

/// Of this process.
RunningPlace placeOfThisProcess();

std::string textOf(const RunningPlace& place);

/// Nil for what is no such text.
std::optional<RunningPlace> runningPlaceIn(std::string_view text);

} // namespace panewright
