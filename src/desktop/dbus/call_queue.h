#pragma once

#include "platform/main_loop.h"

#include <cstddef>
#include <deque>
#include <functional>

namespace panewright {

/// Calls from other programs, done one in a turn of the main loop: between two of them everything
/// else that has come gets its turn, however many there are. Main thread only.
class CallQueue {
public:
    explicit CallQueue(MainLoop& mainLoop) : mainLoop_(mainLoop) {}

    /// Does the call later, in the order of adding. False, and nothing happens, when so much waits
    /// already that a call which holds so many bytes would be too much.
    bool add(std::size_t bytes, std::function<void()> call);

private:
    struct Waiting {
        std::size_t bytes = 0;
        std::function<void()> call;
    };

    void doNextLater();
    void doNext();

    MainLoop& mainLoop_;
    std::deque<Waiting> waiting_;
    std::size_t waitingBytes_ = 0;
    Registration nextTurn_;
};

} // namespace panewright
