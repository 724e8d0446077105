#include "desktop/shared/keyboard_loan.h"

#include <gtest/gtest.h>

#include <vector>

namespace panewright {
namespace {

using State = KeyboardLoan::State;
using enum KeyboardLoan::Event;
using Action = KeyboardLoan::Action;

constexpr NativeWindow kOurs = 1, kLender = 2;

/// After these events the loan is in the state, and the lender was to be activated so often.
void expectAfter(const char* story, const std::vector<KeyboardLoan::Event>& events, State end,
                 int activations) {
    SCOPED_TRACE(story);
    KeyboardLoan loan;
    int times = 0;
    for (const auto event : events) {
        if (event == kOursActive) {
            loan.borrow(kOurs, kLender);
        } else if (loan.handle(event) == Action::kActivateLender) {
            ++times;
        }
    }
    EXPECT_EQ(loan.state(), end);
    EXPECT_EQ(times, activations);
}

TEST(KeyboardLoan, GivesBackWhatNobodyElseWasMeantToHave) {
    expectAfter("back while ours is shown",
                {kOursActive, kAskedBack, kTheirsActive, kCrossingsOver}, State::kTheirs, 1);
    expectAfter("ours closes, the manager chooses, then it is asked back",
                {kOursActive, kOursClosed, kChangeHeard, kAskedBack}, State::kReturning, 1);
    expectAfter("the user goes elsewhere, then ours closes",
                {kOursActive, kChangeHeard, kOursClosed, kAskedBack}, State::kLeaving, 0);
    expectAfter("the user has gone elsewhere",
                {kOursActive, kChangeHeard, kTheirsActive, kAskedBack}, State::kTheirs, 0);
    expectAfter("the change was between two of ours",
                {kOursActive, kChangeHeard, kOursActive, kAskedBack}, State::kReturning, 1);
    expectAfter("nobody has it", {kOursActive, kChangeHeard, kNobodyActive, kAskedBack},
                State::kReturning, 1);
    expectAfter("ours never had it", {kAskedBack}, State::kTheirs, 0);
    expectAfter("crossed before and after it arrives",
                {kOursActive, kAskedBack, kCrossed, kTheirsActive, kCrossed, kTheirsActive,
                 kCrossingsOver, kCrossed},
                State::kTheirs, 3);
    expectAfter("a stubborn manager",
                {kOursActive, kAskedBack, kCrossed, kCrossed, kCrossed, kCrossed, kCrossed},
                State::kReturned, 4);
    expectAfter("ours comes forward again at once",
                {kOursActive, kAskedBack, kTheirsActive, kAskedForward, kCrossed, kOursActive},
                State::kOurs, 1);
}

TEST(KeyboardLoan, RemembersTheLenderUntilTheKeyboardIsBackOrItIsGone) {
    constexpr NativeWindow kOther = 3;
    KeyboardLoan loan;
    loan.borrow(kOurs, kLender);
    loan.borrow(kOther, kOther); // a second window of ours borrows from the first
    EXPECT_EQ(loan.lender(), kLender);
    EXPECT_EQ(loan.borrower(), kOther);
    loan.handle(kTheirsActive);
    loan.borrow(kOurs, kOther);
    EXPECT_EQ(loan.lender(), kOther);
    loan.loseLender();
    EXPECT_EQ(loan.handle(kAskedBack), Action::kNone);
    EXPECT_EQ(loan.state(), State::kTheirs);
}

} // namespace
} // namespace panewright
