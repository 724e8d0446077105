#include "desktop/dbus/call_queue.h"

#include <chrono>
#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// Far more than programs ask at once that wait for their answers.
constexpr std::size_t kMostWaiting = 1000;
constexpr std::size_t kMostWaitingBytes = 32 << 20;

} // namespace

bool CallQueue::add(std::size_t bytes, std::function<void()> call) {
    if (waiting_.size() >= kMostWaiting || bytes > kMostWaitingBytes - waitingBytes_) {
        return false;
    }
    waitingBytes_ += bytes;
    waiting_.push_back({bytes, std::move(call)});
    if (waiting_.size() == 1) {
        doNextLater();
    }
    return true;
}

/// A timer, as the loop does what is posted before it looks at anything else, for as long as there
/// is more.
void CallQueue::doNextLater() {
    nextTurn_ = mainLoop_.after(0ms, [this] { doNext(); });
}

void CallQueue::doNext() {
    const auto next = std::move(waiting_.front());
    waiting_.pop_front();
    waitingBytes_ -= next.bytes;
    // The call may run the loop until a window of its own is closed.
    if (!waiting_.empty()) {
        doNextLater();
    }
    next.call();
}

} // namespace panewright
