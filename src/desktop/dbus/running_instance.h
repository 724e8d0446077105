#pragma once

#include <optional>
#include <string>

namespace panewright {

/// Asks the program of that identifier that runs in this session to open its window. It may just be
/// starting, so that takes up to a few seconds. False without a bus, or when nobody answers; nil
/// when the bus hangs, and then the process must end by endWhileBusHangs().
std::optional<bool> activateRunningInstance(const std::string& identifier);

} // namespace panewright
