#pragma once

#include "support/desktop.h"

#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

#include <stdexcept>

namespace panewright::test {

/// The built program, ready for key presses when the constructor returns.
class Program {
public:
    explicit Program(const Desktop& desktop) : Program(desktop.environment()) {}

    explicit Program(const Environment& environment) : process_({PANEWRIGHT_PROGRAM}, environment) {
        if (!process_.waitForErrorLine("panewright: ready")) {
            throw std::runtime_error("the program is not ready: " + process_.standardError());
        }
    }

    ChildProcess* operator->() { return &process_; }

private:
    ChildProcess process_;
};

/// What Alt+1 to Alt+4 do on a display of 1600 by 900.
using FourFrames = std::array<Frame, 4>;
constexpr FourFrames kStates{
    {{0, 0, 1600, 900}, {80, 45, 1440, 810}, {160, 90, 1280, 720}, {280, 158, 1040, 585}}};
constexpr Frame kLarge = kStates[1];
constexpr Frame kSmall = kStates[3];

/// Presses Alt and the key; the window must come to stand in the frame.
inline void expectAfter(std::uint16_t key, const Frame& frame, const Desktop& desktop,
                        xcb_window_t window, std::chrono::milliseconds timeout = kPatience) {
    desktop.keyboard().tap(KEY_LEFTALT, key);
    EXPECT_EQ(frameOnceItIs(frame, desktop.x(), window, timeout), frame) << "key " << key;
}

} // namespace panewright::test
