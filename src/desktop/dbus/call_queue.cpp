#include "desktop/dbus/call_queue.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// More than programs ask at once that wait for their answers, and few enough for the last one to
/// have its turn within the time that callers wait.
constexpr std::size_t kMostWaiting = 200;
constexpr std::size_t kMostWaitingBytes = 32 << 20;

/// The least that the main thread rests between two calls, and between those of a flood: a call
/// that moves a window keeps the window manager busy for longer than us.
constexpr auto kShortestRest = 2ms;
constexpr auto kShortestRestInFlood = 10ms;
constexpr std::size_t kFlood = 50; // so many wait
/// A call may have waited for a person.
constexpr auto kLongestRest = 100ms;

} // namespace

bool CallQueue::add(std::size_t bytes, std::function<void()> call) {
    const std::scoped_lock lock(mutex_);
    if (waiting_.size() >= kMostWaiting || bytes > kMostWaitingBytes - waitingBytes_) {
        return false;
    }
    waitingBytes_ += bytes;
    waiting_.push_back({bytes, std::move(call)});
    if (!std::exchange(isBusy_, true)) {
        mainLoop_.post(lifetime_.guard([this] { doNext(); }));
    }
    return true;
}

/// Rests for as long as the call took, so that calls take no more than half of the main thread.
void CallQueue::doNext() {
    const auto call = takeNext();
    if (!call) {
        return;
    }
    // The call may run the loop itself, until a window is closed.
    const auto shortest = shortestRest();
    rest_ = mainLoop_.after(shortest, [this] { doNext(); });
    const auto start = std::chrono::steady_clock::now();
    call();
    const auto taken =
        std::chrono::ceil<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    if (taken > shortest) {
        rest_ = mainLoop_.after(std::min<std::chrono::milliseconds>(taken, kLongestRest),
                                [this] { doNext(); });
    }
}

std::chrono::milliseconds CallQueue::shortestRest() {
    const std::scoped_lock lock(mutex_);
    return waiting_.size() < kFlood ? kShortestRest : kShortestRestInFlood;
}

std::function<void()> CallQueue::takeNext() {
    const std::scoped_lock lock(mutex_);
    if (waiting_.empty()) {
        isBusy_ = false;
        return nullptr;
    }
    auto next = std::move(waiting_.front());
    waiting_.pop_front();
    waitingBytes_ -= next.bytes;
    return std::move(next.call);
}

} // namespace panewright
