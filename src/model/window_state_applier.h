#pragma once

#include <memory>

namespace panewright {

class WindowState;

/// What a state asks for when its hot key is pressed.
class WindowStateApplier {
public:
    virtual ~WindowStateApplier() = default;

    /// Puts the frontmost application's focused window into the state; null is allowed.
    virtual void applyWindowStateToActiveWindow(const std::shared_ptr<WindowState>& state) = 0;
};

} // namespace panewright
