#pragma once

#include "base/lifetime.h"
#include "platform/main_loop.h"

#include <functional>
#include <utility>

namespace panewright {

/// A task that runs once in the next turn of the main loop, however often it is asked for in this
/// one; not at all once this object is gone.
class PostedOnce {
public:
    PostedOnce(MainLoop& mainLoop, std::function<void()> task)
        : mainLoop_(mainLoop), task_(std::move(task)) {}

    void post() {
        if (!std::exchange(isPosted_, true)) {
            mainLoop_.post(lifetime_.guard([this] {
                isPosted_ = false;
                const auto task = task_; // which may end this object
                task();
            }));
        }
    }

private:
    MainLoop& mainLoop_;
    std::function<void()> task_;
    bool isPosted_ = false;
    Lifetime lifetime_;
};

} // namespace panewright
