#pragma once

#include <memory>

namespace panewright {

class WindowState;

/// What the save popover needs of the controller that opened it.
class WindowStateSaving {
public:
    virtual ~WindowStateSaving() = default;

    /// Adds it to the store; nothing is saved yet.
    virtual void addWindowState(const std::shared_ptr<WindowState>& state) = 0;

    /// Saves the store, installs the hot keys again, closes the popover and gives the keyboard back
    /// to the program that the user was in.
    virtual void finishSavingWindowState() = 0;

    /// Closes the popover and gives the keyboard back, nothing else: the hot keys come back with
    /// the application that becomes active.
    virtual void abandonSavingWindowState() = 0;
};

} // namespace panewright
