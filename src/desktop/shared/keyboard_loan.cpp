#include "desktop/shared/keyboard_loan.h"

#include <algorithm>
#include <array>

namespace panewright {
namespace {

using State = KeyboardLoan::State;
using Event = KeyboardLoan::Event;
using Action = KeyboardLoan::Action;

/// A manager that crosses more often than that will not be persuaded.
constexpr int kMaxCrossings = 3;

struct Transition {
    State from;
    Event event;
    State to;
    Action action = Action::kNone;
};

/// What is not listed changes nothing.
constexpr std::array kTransitions{
    Transition{State::kTheirs, Event::kOursActive, State::kOurs},

    Transition{State::kOurs, Event::kChangeHeard, State::kLeaving},
    Transition{State::kOurs, Event::kOursClosed, State::kOrphaned},
    Transition{State::kOurs, Event::kTheirsActive, State::kTheirs},
    Transition{State::kOurs, Event::kAskedBack, State::kReturning, Action::kActivateLender},

    Transition{State::kLeaving, Event::kOursActive, State::kOurs},
    Transition{State::kLeaving, Event::kTheirsActive, State::kTheirs},
    Transition{State::kLeaving, Event::kNobodyActive, State::kOrphaned},

    Transition{State::kOrphaned, Event::kOursActive, State::kOurs},
    Transition{State::kOrphaned, Event::kTheirsActive, State::kTheirs},
    Transition{State::kOrphaned, Event::kAskedBack, State::kReturning, Action::kActivateLender},

    Transition{State::kReturning, Event::kTheirsActive, State::kReturned},
    Transition{State::kReturning, Event::kCrossed, State::kReturning, Action::kActivateLender},
    Transition{State::kReturning, Event::kAskedForward, State::kOurs},
    Transition{State::kReturning, Event::kAskedBack, State::kReturning, Action::kActivateLender},
    Transition{State::kReturning, Event::kCrossingsOver, State::kOurs},

    Transition{State::kReturned, Event::kOursActive, State::kOurs},
    Transition{State::kReturned, Event::kCrossed, State::kReturned, Action::kActivateLender},
    Transition{State::kReturned, Event::kAskedForward, State::kTheirs},
    Transition{State::kReturned, Event::kCrossingsOver, State::kTheirs},
};

} // namespace

void KeyboardLoan::borrow(NativeWindow ours, NativeWindow lastOfOthers) {
    if (state_ == State::kTheirs || state_ == State::kReturned) {
        lender_ = lastOfOthers;
    }
    if (state_ != State::kReturning) {
        borrower_ = ours;
    }
    handle(Event::kOursActive);
}

Action KeyboardLoan::handle(Event event) {
    if (event == Event::kAskedBack) {
        crossings_ = 0;
    } else if (event == Event::kCrossed && ++crossings_ > kMaxCrossings) {
        event = Event::kTheirsActive;
    }
    const auto* const found =
        std::find_if(kTransitions.begin(), kTransitions.end(), [&](const Transition& each) {
            return each.from == state_ && each.event == event;
        });
    if (found == kTransitions.end()) {
        return Action::kNone;
    }
    if (found->action == Action::kActivateLender && lender_ == kNoNativeWindow) {
        state_ = State::kTheirs; // the manager chooses
        return Action::kNone;
    }
    state_ = found->to;
    return found->action;
}

} // namespace panewright
