#pragma once

#include <memory>

namespace panewright {

class WindowState;

/// What the views need of the controller to save a window's frame as a state.
class WindowStateSaving {
public:
    virtual ~WindowStateSaving() = default;

    /// Opens the save popover for the tracked window; beeps when that cannot be moved and resized.
    /// No hot key is installed while the popover is open, so that each can be recorded.
    virtual void saveWindowPosition() = 0;

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
