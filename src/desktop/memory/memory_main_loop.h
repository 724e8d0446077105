#pragma once

#include "platform/main_loop.h"

#include <deque>
#include <map>
#include <mutex>
#include <optional>

namespace panewright {

/// A main loop whose clock stands still until there is nothing else to do, then jumps to the next
/// timer. Descriptors are real ones.
class MemoryMainLoop : public MainLoop {
public:
    void post(std::function<void()> task) override;
    Registration after(std::chrono::milliseconds delay, std::function<void()> task) override;
    Registration whenReadable(int descriptor, std::function<void()> callback) override;

    /// Also returns (with 0) when nothing is left that could ever happen.
    int run() override;
    void quit(int exitCode) override { exitCode_ = exitCode_ ? exitCode_ : exitCode; }

    /// Runs everything that is due now, what is posted meanwhile included.
    void runPending();

    /// Lets time pass, running what falls due in its order.
    void advance(std::chrono::milliseconds time);

private:
    using Time = std::chrono::milliseconds;
    struct Timer {
        Time due;
        std::function<void()> task;
    };
    struct Watch {
        int descriptor;
        std::function<void()> callback;
    };

    std::function<void()> takeTask();
    bool runNextTimer(Time until);
    bool pollDescriptors(bool wait);

    std::mutex mutex_; // post() comes from other threads
    std::deque<std::function<void()>> tasks_;
    Time now_{0};
    std::map<std::uint64_t, Timer> timers_;
    std::map<std::uint64_t, Watch> watches_;
    std::uint64_t nextId_ = 0;
    std::optional<int> exitCode_;
};

} // namespace panewright
