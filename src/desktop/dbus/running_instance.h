#pragma once

#include <functional>
#include <string>

namespace panewright {

enum class RunningInstance {
    kAnswered,
    kUnanswered, // also without a bus
    kEnded,      // the program has ended meanwhile
    kBusHangs,   // this process must end by endWhileBusHangs()
};

/// What the program that runs is asked.
enum class InstanceRequest {
    kOpenItsWindow,
    kNothing, // but an answer
};

/// Asks the program of that identifier that runs in this session. It may just be starting, so that
/// takes up to a few seconds. Asks `hasEnded` again and again meanwhile, on this thread.
RunningInstance askRunningInstance(const std::string& identifier, InstanceRequest request,
                                   const std::function<bool()>& hasEnded);

} // namespace panewright
