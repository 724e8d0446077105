#include "desktop/x11/x11_windows.h"

#include "desktop/x11/x_properties.h"

#include <utility>

namespace panewright {
namespace {

xcb_window_t xWindow(WindowId window) {
    return static_cast<xcb_window_t>(window);
}

} // namespace

X11Windows::X11Windows(XConnection& connection, WindowManager& manager, WindowFactsOfTurn& facts,
                       ActiveWindows& activeWindows, const X11WorkAreas& workAreas,
                       MainLoop& mainLoop)
    : connection_(connection), facts_(facts), activeWindows_(activeWindows),
      writer_(connection, manager, facts, workAreas, mainLoop),
      frames_(connection, facts, writer_, mainLoop) {}

void X11Windows::catchUp() {
    const bool wasBusy = writer_.settleAll();
    facts_.forgetAll();
    activeWindows_.update();
    if (wasBusy) {
        frames_.checkAll();
    } else {
        frames_.checkChanged();
    }
}

Answer<ProcessId> X11Windows::frontmostProcess() {
    const auto& frontmost = activeWindows_.frontmost();
    return frontmost ? Answer<ProcessId>(frontmost->processIdentifier) : NoAnswer::kNone;
}

Answer<WindowId> X11Windows::focusedWindowOf(ProcessId pid) {
    const auto window = activeWindows_.focusedWindowOf(pid);
    return window ? Answer<WindowId>(*window) : NoAnswer::kNone;
}

Answer<Rect> X11Windows::frameOf(WindowId window) {
    const auto frame = writer_.settledFrame(xWindow(window));
    return frame ? Answer<Rect>(*frame) : NoAnswer::kNone;
}

Answer<WindowAbilities> X11Windows::abilitiesOf(WindowId window) {
    writer_.settledFrame(xWindow(window));
    const auto facts = facts_.of(xWindow(window));
    if (!facts) {
        return NoAnswer::kNone;
    }
    const auto& [hints, states, allowed] = facts->traits;
    // What is forbidden in a state that blocks says nothing of the window.
    const bool isBlocked = states.blocksPlacing();
    const bool isFixed = hints.fixedWidth || hints.fixedHeight;
    return WindowAbilities{isBlocked || allowed.move, !isFixed && (isBlocked || allowed.resize),
                           states.fullScreen};
}

Answer<std::string> X11Windows::titleOf(WindowId window) {
    XPropertyRequest modern(connection_, xWindow(window), connection_.atoms()._NET_WM_NAME);
    XPropertyRequest plain(connection_, xWindow(window), XCB_ATOM_WM_NAME);
    auto title = modern.text();
    if (!title) {
        title = plain.text();
    }
    return title ? Answer<std::string>(std::move(*title)) : NoAnswer::kNone;
}

bool X11Windows::writePosition(WindowId window, Point position) {
    return writer_.writePosition(xWindow(window), position);
}

bool X11Windows::writeSize(WindowId window, Size size) {
    return writer_.writeSize(xWindow(window), size);
}

Registration X11Windows::onFocusChange(ProcessId pid, std::function<void()> callback) {
    return activeWindows_.onWindowChange([pid, callback = std::move(callback)](ProcessId changed) {
        if (changed == pid) {
            callback();
        }
    });
}

Registration X11Windows::onMoved(WindowId window, std::function<void()> callback) {
    return frames_.onMoved(xWindow(window), std::move(callback));
}

Registration X11Windows::onResized(WindowId window, std::function<void()> callback) {
    return frames_.onResized(xWindow(window), std::move(callback));
}

} // namespace panewright
