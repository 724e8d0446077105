#pragma once

#include "base/registration.h"

#include <chrono>
#include <functional>

namespace panewright {

/// The main thread's event loop. Everything is called, and calls back, on the main thread; only
/// post() may be called from others.
class MainLoop {
public:
    virtual ~MainLoop() = default;

    /// Runs the task after the event that is being handled, in the order of posting.
    virtual void post(std::function<void()> task) = 0;

    /// Runs the task once, `delay` from now, unless the registration is released before.
    virtual Registration after(std::chrono::milliseconds delay, std::function<void()> task) = 0;

    /// Calls back whenever the descriptor can be read without blocking. It stays the caller's.
    virtual Registration whenReadable(int descriptor, std::function<void()> callback) = 0;

    /// Runs until quit(); returns the exit code given there. A quit() before run() ends it at once.
    virtual int run() = 0;

    /// The first exit code counts.
    virtual void quit(int exitCode) = 0;
};

} // namespace panewright
