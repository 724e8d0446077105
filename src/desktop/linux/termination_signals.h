#pragma once

#include "base/registration.h"
#include "platform/main_loop.h"

#include <functional>

namespace panewright {

/// Calls back on the main loop when the process is asked to end (SIGTERM, SIGINT, SIGHUP). Must be
/// called before any thread is started, as the threads inherit the mask that keeps the signals for
/// the loop.
Registration onTerminationSignal(MainLoop& mainLoop, std::function<void()> callback);

} // namespace panewright
