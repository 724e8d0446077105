#include "desktop/x11/x11_keyboard_loan.h"

#include "desktop/x11/window_geometry.h"
#include "desktop/x11/x_properties.h"

#include <unistd.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;
using Event = KeyboardLoan::Event;

/// How long a manager may take to focus what lies under the pointer after a window went. xfwm4
/// waits 250 ms.
constexpr auto kSlowestFocus = 500ms;

} // namespace

X11KeyboardLoan::X11KeyboardLoan(XConnection& connection, ActiveWindows& activeWindows,
                                 WindowActivator& activator, MainLoop& mainLoop)
    : connection_(connection), activeWindows_(activeWindows), activator_(activator),
      mainLoop_(mainLoop),
      arrivals_(connection.onArrival([this](const auto& event) { noteArrival(event); })),
      activeWindowAnswers_(activeWindows.onAsked(
          [this](xcb_window_t active, ProcessId pid) { noteActiveWindow(active, pid); })) {}

void X11KeyboardLoan::giveBack() {
    // What is active now has not been told of yet: if it is another program's, it may be so only
    // because ours closed.
    const auto active = activeWindows_.readActiveWindow();
    const auto pid = active == kNoWindow ? 0 : activeWindows_.pidOf(active);
    if (active == kNoWindow || pid == getpid()) {
        noteActiveWindow(active, pid);
    }
    handle(Event::kAskedBack);
}

void X11KeyboardLoan::keep() {
    handle(Event::kAskedForward);
}

void X11KeyboardLoan::noteArrival(const xcb_generic_event_t& event) {
    if (isRootProperty(connection_, event, connection_.atoms()._NET_ACTIVE_WINDOW)) {
        loan_.handle(Event::kChangeHeard);
    } else if (event.response_type == XCB_UNMAP_NOTIFY) { // destroying a window unmaps it too
        const auto closed = reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
        if (closed == loan_.borrower()) {
            loan_.handle(Event::kOursClosed);
        }
    } else if (event.response_type == XCB_DESTROY_NOTIFY) {
        const auto gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        if (gone == loan_.lender()) {
            loan_.loseLender();
        }
    }
}

void X11KeyboardLoan::noteActiveWindow(xcb_window_t active, ProcessId pid) {
    if (active == kNoWindow) {
        handle(Event::kNobodyActive);
    } else if (pid == getpid()) {
        loan_.borrow(active, activeWindows_.lastOfOthers());
    } else {
        handle(isCrossing(active) ? Event::kCrossed : Event::kTheirsActive);
    }
}

void X11KeyboardLoan::handle(Event event) {
    if (loan_.handle(event) == KeyboardLoan::Action::kActivateLender) {
        const auto lender = static_cast<xcb_window_t>(loan_.lender());
        if (activeWindows_.isShown(lender)) {
            activator_.activate(lender);
        }
        if (event == Event::kAskedBack) {
            crossingsEnd_ =
                mainLoop_.after(kSlowestFocus, [this] { handle(Event::kCrossingsOver); });
        }
    }
    if (!loan_.mayBeCrossed()) {
        crossingsEnd_.release();
    }
}

/// A user who goes elsewhere so soon does so by keys, or while our window is still shown.
bool X11KeyboardLoan::isCrossing(xcb_window_t active) {
    return loan_.mayBeCrossed() && active != loan_.lender() && isUnderPointer(active) &&
           !activeWindows_.isShown(static_cast<xcb_window_t>(loan_.borrower()));
}

bool X11KeyboardLoan::isUnderPointer(xcb_window_t window) {
    const auto pointer = connection_.reply(xcb_query_pointer_reply,
                                           xcb_query_pointer(connection_, connection_.root()));
    return pointer && outermostAncestor(connection_, window) == pointer->child;
}

} // namespace panewright
