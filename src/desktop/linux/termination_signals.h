#pragma once

#include "base/registration.h"
#include "platform/main_loop.h"

#include <functional>

namespace panewright {

/// Keeps the signals that ask the process to end (SIGTERM, SIGINT, SIGHUP) for its main loop, but
/// for those that it was started to ignore, as by nohup(1). Must be made before any thread is
/// started, toolkit's included: threads inherit the mask.
class TerminationSignals {
public:
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// Calls back on the main loop for each one, also for one that came before.
    Registration onSignal(MainLoop& mainLoop, std::function<void()> callback) const;

private:
    int descriptor_ = -1;
};

} // namespace panewright
