#pragma once

#include <chrono>
#include <thread>

namespace panewright::test {

/// Long enough for a busy machine; only a test that fails waits so long.
constexpr std::chrono::milliseconds kPatience{5000};
/// The same for a program that starts.
constexpr std::chrono::seconds kSlowestStart{15};

/// Whether the condition holds before the timeout ends.
template <class Condition>
bool eventually(Condition condition, std::chrono::milliseconds timeout = kPatience) {
    const auto end = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace panewright::test
