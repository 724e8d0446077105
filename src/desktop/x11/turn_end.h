#pragma once

#include "base/lifetime.h"
#include "platform/main_loop.h"

#include <functional>
#include <utility>

namespace panewright {

/// Forgets what was learnt in a turn of the main loop once the tasks that this turn has posted have
/// run too: a key press posts what it means, so what is asked when the key arrives serves it all.
class TurnEnd {
public:
    TurnEnd(MainLoop& mainLoop, std::function<void()> forget)
        : mainLoop_(mainLoop), forget_(std::move(forget)) {}

    /// To be called when something is learnt.
    void await() {
        if (!std::exchange(isAwaited_, true)) {
            // What this turn posts comes before what the next one does.
            mainLoop_.post(lifetime_.guard([this] {
                mainLoop_.post(lifetime_.guard([this] {
                    isAwaited_ = false;
                    forget_();
                }));
            }));
        }
    }

private:
    MainLoop& mainLoop_;
    std::function<void()> forget_;
    bool isAwaited_ = false;
    Lifetime lifetime_;
};

} // namespace panewright
