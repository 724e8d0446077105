#pragma once

namespace panewright {

/// What the system wants of threads that nobody waits for. Callable from any thread.
class BackgroundWork {
public:
    virtual ~BackgroundWork() = default;

    /// Lets everything else go before the calling thread, for good; nothing where that is not to be
    /// had.
    virtual void lowerPriorityOfThisThread() const = 0;
};

} // namespace panewright
