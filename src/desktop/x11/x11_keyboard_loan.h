#pragma once

#include "desktop/shared/keyboard_loan.h"
#include "desktop/x11/active_windows.h"
#include "desktop/x11/window_activator.h"
#include "platform/main_loop.h"

namespace panewright {

/// Gives the keyboard back to the window that had it before ours, also where the window manager
/// wants it elsewhere: tells a KeyboardLoan what happens, and does what it answers.
class X11KeyboardLoan {
public:
    /// All of it must outlive the loan.
    X11KeyboardLoan(XConnection& connection, ActiveWindows& activeWindows,
                    WindowActivator& activator, MainLoop& mainLoop);

    /// The keyboard goes back, if one of ours has it or had it until it closed.
    void giveBack();

    /// A window of ours is to come forward: what gets the keyboard now may keep it.
    void keep();

private:
    void noteArrival(const xcb_generic_event_t& event);
    void noteActiveWindow(xcb_window_t active, ProcessId pid);
    void handle(KeyboardLoan::Event event);
    bool isCrossing(xcb_window_t active);
    bool isUnderPointer(xcb_window_t window);

    XConnection& connection_;
    ActiveWindows& activeWindows_;
    WindowActivator& activator_;
    MainLoop& mainLoop_;
    KeyboardLoan loan_;
    /// Until no manager crosses the way back any more.
    Registration crossingsEnd_;
    Registration arrivals_;
    Registration activeWindowAnswers_;
};

} // namespace panewright
