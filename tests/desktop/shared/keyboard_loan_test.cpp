#include "desktop/shared/keyboard_loan.h"

#include <gtest/gtest.h>

#include <vector>

namespace panewright {
namespace {

using State = KeyboardLoan::State;
using Event = KeyboardLoan::Event;
using Action = KeyboardLoan::Action;

constexpr NativeWindow kOurs = 1;
constexpr NativeWindow kLender = 2;

struct Story {
    const char* name;
    std::vector<Event> events;
    State end;
    /// How often the lender was to be activated.
    int activations;
};

TEST(KeyboardLoan, GivesBackWhatNobodyElseWasMeantToHave) {
    const Story stories[] = {
        {"back while ours is shown",
         {Event::kOursActive, Event::kAskedBack, Event::kTheirsActive, Event::kCrossingsOver},
         State::kTheirs,
         1},
        {"ours closes, the manager chooses, then it is asked back",
         {Event::kOursActive, Event::kOursClosed, Event::kChangeHeard, Event::kAskedBack},
         State::kReturning,
         1},
        {"the user goes elsewhere, then ours closes",
         {Event::kOursActive, Event::kChangeHeard, Event::kOursClosed, Event::kAskedBack},
         State::kLeaving,
         0},
        {"the user has gone elsewhere",
         {Event::kOursActive, Event::kChangeHeard, Event::kTheirsActive, Event::kAskedBack},
         State::kTheirs,
         0},
        {"the change was between two of ours",
         {Event::kOursActive, Event::kChangeHeard, Event::kOursActive, Event::kAskedBack},
         State::kReturning,
         1},
        {"nobody has it",
         {Event::kOursActive, Event::kChangeHeard, Event::kNobodyActive, Event::kAskedBack},
         State::kReturning,
         1},
        {"ours never had it", {Event::kAskedBack}, State::kTheirs, 0},
        {"crossed before and after it arrives",
         {Event::kOursActive, Event::kAskedBack, Event::kCrossed, Event::kTheirsActive,
          Event::kCrossed, Event::kTheirsActive, Event::kCrossingsOver, Event::kCrossed},
         State::kTheirs,
         3},
        {"a stubborn manager",
         {Event::kOursActive, Event::kAskedBack, Event::kCrossed, Event::kCrossed, Event::kCrossed,
          Event::kCrossed, Event::kCrossed},
         State::kReturned,
         4},
        {"ours comes forward again at once",
         {Event::kOursActive, Event::kAskedBack, Event::kTheirsActive, Event::kAskedForward,
          Event::kCrossed, Event::kOursActive},
         State::kOurs,
         1},
    };
    for (const auto& story : stories) {
        SCOPED_TRACE(story.name);
        KeyboardLoan loan;
        int activations = 0;
        for (const auto event : story.events) {
            if (event == Event::kOursActive) {
                loan.borrow(kOurs, kLender);
            } else if (loan.handle(event) == Action::kActivateLender) {
                ++activations;
            }
        }
        EXPECT_EQ(loan.state(), story.end);
        EXPECT_EQ(activations, story.activations);
    }
}

TEST(KeyboardLoan, RemembersTheLenderUntilTheKeyboardIsBackOrItIsGone) {
    constexpr NativeWindow kOther = 3;
    KeyboardLoan loan;
    loan.borrow(kOurs, kLender);
    loan.borrow(kOther, kOther); // a second window of ours borrows from the first
    EXPECT_EQ(loan.lender(), kLender);
    EXPECT_EQ(loan.borrower(), kOther);
    loan.handle(Event::kTheirsActive);
    loan.borrow(kOurs, kOther);
    EXPECT_EQ(loan.lender(), kOther);
    loan.loseLender();
    EXPECT_EQ(loan.handle(Event::kAskedBack), Action::kNone);
    EXPECT_EQ(loan.state(), State::kTheirs);
}

} // namespace
} // namespace panewright
