#pragma once

#include "base/lifetime.h"
#include "platform/main_loop.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

namespace panewright {

/// Calls from other programs on their way to the main thread, which does them one by one and rests
/// in between: however many there are, what else has come gets its turn. Lives on the main thread.
class CallQueue {
public:
    explicit CallQueue(MainLoop& mainLoop) : mainLoop_(mainLoop) {}
    CallQueue(const CallQueue&) = delete;
    CallQueue& operator=(const CallQueue&) = delete;

    /// Does the call later, on the main loop, in the order of adding. False, and nothing happens,
    /// when so much waits already that a call which holds so many bytes would be too much. From any
    /// thread, while the queue lives.
    bool add(std::size_t bytes, std::function<void()> call);

private:
    struct Waiting {
        std::size_t bytes = 0;
        std::function<void()> call;
    };

    void doNext();
    std::chrono::milliseconds shortestRest();
    std::function<void()> takeNext();

    MainLoop& mainLoop_;
    Registration rest_;
    Lifetime lifetime_;
    std::mutex mutex_; // guards what follows
    std::deque<Waiting> waiting_;
    std::size_t waitingBytes_ = 0;
    bool isBusy_ = false; // the main thread will come back by itself
};

} // namespace panewright
