#pragma once

#include <functional>
#include <string>

namespace panewright {

enum class Activation {
    kDone,
    kUnanswered, // also without a bus
    kEnded,      // the program has ended meanwhile
    kBusHangs,   // this process must end by endWhileBusHangs()
};

/// Asks the program of that identifier that runs in this session to open its window. It may just be
/// starting, so that takes up to a few seconds. Asks `hasEnded` again and again meanwhile, on this
/// thread.
Activation activateRunningInstance(const std::string& identifier,
                                   const std::function<bool()>& hasEnded);

} // namespace panewright
