#pragma once

namespace panewright {

/// What the system wants of threads of ours that nobody waits for. Callable from any thread.
class BackgroundWork {
public:
    virtual ~BackgroundWork() = default;

    /// The first call of such a thread. Everything else goes before it from now on, and its crashes
    /// are reported as those of the main thread, as far as that is to be had.
    virtual void beginThread() const = 0;
};

} // namespace panewright
