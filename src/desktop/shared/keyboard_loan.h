#pragma once

#include "desktop/shared/own_windows.h"

namespace panewright {

/// The keyboard, which a window of ours borrows from another program's window and gives back.
///
/// When a window of ours closes, window managers give the keyboard to one of their own choice, some
/// even after they were asked for another. The order in which changes were heard of tells whether
/// the user or the manager chose. The loan asks nobody: its owner tells it what happens, and does
/// what it answers.
class KeyboardLoan {
public:
    enum class State {
        kTheirs,    // another program has the keyboard, or nobody
        kOurs,      // a window of ours has it
        kLeaving,   // it goes elsewhere while our window is shown: by the user's choice
        kOrphaned,  // our window closed first: whoever has the keyboard now got it from the manager
        kReturning, // the manager has been asked to give it back
        kReturned,  // it has gone to another program since, though not for certain to stay there
    };

    enum class Event {
        kOursActive,    // a window of ours is active
        kTheirsActive,  // another program's is
        kCrossed,       // another program's is, and not by the user's choice
        kNobodyActive,  // no window is
        kChangeHeard,   // another window becomes active; which, has not been asked
        kOursClosed,    // our window that has the keyboard is not shown any more
        kAskedForward,  // a window of ours is to come forward
        kAskedBack,     // the keyboard is to go back
        kCrossingsOver, // so late no manager gives it to another window
    };

    /// Whether the manager is to be asked to activate lender().
    enum class Action { kNone, kActivateLender };

    State state() const { return state_; }
    /// The window of ours that has or had the keyboard, and the window of another program that it
    /// goes back to; kNoNativeWindow for none.
    NativeWindow borrower() const { return borrower_; }
    NativeWindow lender() const { return lender_; }
    /// Whether the way back has been asked for, and may still be crossed.
    bool mayBeCrossed() const { return state_ == State::kReturning || state_ == State::kReturned; }

    /// A window of ours is active. `lastOfOthers` is the last active window of another program,
    /// kNoNativeWindow without one: it lends the keyboard, unless one of ours has it already.
    void borrow(NativeWindow ours, NativeWindow lastOfOthers);

    /// The lender is gone.
    void loseLender() { lender_ = kNoNativeWindow; }

    /// Without a lender to go back to the keyboard goes where the manager gives it.
    Action handle(Event event);

private:
    State state_ = State::kTheirs;
    NativeWindow borrower_ = kNoNativeWindow;
    NativeWindow lender_ = kNoNativeWindow;
    int crossings_ = 0;
};

} // namespace panewright
