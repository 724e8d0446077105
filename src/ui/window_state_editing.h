#pragma once

#include <memory>

namespace panewright {

class WindowState;

/// What the edit popover needs of the controller that opened it.
class WindowStateEditing {
public:
    virtual ~WindowStateEditing() = default;

    /// Saves the store, installs the hot keys again, closes the popover and gives the keyboard back
    /// to the program that the user was in.
    virtual void finishEditingWindowState() = 0;

    /// Closes the popover and gives the keyboard back, nothing else: the hot keys come back with
    /// the application that becomes active.
    virtual void abandonEditingWindowState() = 0;

    /// Removes it from the store and saves; its hot key goes to whom it overrode.
    virtual void removeWindowState(const std::shared_ptr<WindowState>& state) = 0;
};

} // namespace panewright
