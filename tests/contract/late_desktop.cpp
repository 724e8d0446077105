#include "contract/late_desktop.h"

#include <chrono>
#include <utility>

namespace panewright {
namespace {

constexpr std::chrono::milliseconds kDelay{5};

} // namespace

void LateCompositor::later(std::function<void()> task) {
    timers_.push_back(mainLoop_.after(kDelay, std::move(task)));
}

std::optional<MemoryWindows::Window> LateCompositor::find(WindowId window) const {
    const auto* found = windows_.find(window);
    return found ? std::optional(*found) : std::nullopt;
}

void LateCompositor::close(WindowId window) {
    windows_.closeWindow(window);
    tellWindow(window);
}

void LateCompositor::activate(WindowId window) {
    windows_.activateWindow(window);
    tellFocus();
}

void LateCompositor::setFrame(WindowId window, const Rect& frame) {
    windows_.setFrame(window, frame);
    tellWindow(window);
}

void LateCompositor::ask(WindowId window, WindowCallback answer) {
    later([this, window, answer = std::move(answer)] {
        later([window, answer, found = find(window)] { answer(window, found); });
    });
}

void LateCompositor::place(WindowId window, const Rect& frame, WindowCallback answer) {
    later([this, window, frame, answer = std::move(answer)] {
        windows_.setFrame(window, frame);
        tellWindow(window);
        later([window, answer, found = find(window)] { answer(window, found); });
    });
}

void LateCompositor::activateApplication(ProcessId pid) {
    later([this, pid] {
        windows_.activateApplication(pid);
        tellFocus();
    });
}

void LateCompositor::activateApplicationBefore(ProcessId pid) {
    later([this, pid] {
        windows_.activateApplicationBefore(pid);
        tellFocus();
    });
}

void LateCompositor::tellFocus() {
    Told told{.frontmost = windows_.frontmost().value_or(RunningApplication{})};
    if (const auto focused = windows_.focusedWindowOf(told.frontmost.processIdentifier)) {
        told.focused = focused.value();
    }
    later([this, told] { focusTold.notify(told); });
}

void LateCompositor::tellWindow(WindowId window) {
    later([this, window, found = find(window)] { windowTold.notify(window, found); });
}

LateWindows::LateWindows(LateCompositor& compositor, MainLoop& mainLoop)
    : compositor_(compositor), mainLoop_(mainLoop),
      focusEvents_(compositor.focusTold.add([this](const auto& told) { heardFocus(told); })),
      windowEvents_(compositor.windowTold.add(
          [this](WindowId window, const auto& told) { heardWindow(window, told); })) {}

/// What is told of the focus only names the window: whoever tracks it is told when its frame is
/// known too.
void LateWindows::heardFocus(const LateCompositor::Told& told) {
    const bool isActivation = std::exchange(frontmost_, told.frontmost) != told.frontmost;
    if (!told.focused) {
        focused_.erase(told.frontmost.processIdentifier);
        tellFocus(isActivation);
        return;
    }
    focused_[told.frontmost.processIdentifier] = *told.focused;
    if (known_[*told.focused].window) {
        tellFocus(isActivation);
        return;
    }
    compositor_.ask(*told.focused, [this, isActivation](WindowId window, const auto& answer) {
        heardWindow(window, answer);
        tellFocus(isActivation);
    });
}

void LateWindows::tellFocus(bool isActivation) {
    if (isActivation) {
        activated_.notify();
    } else {
        focusChanged_.notify(frontmost_->processIdentifier);
    }
}

void LateWindows::heardWindow(WindowId window, const std::optional<MemoryWindows::Window>& told) {
    const auto found = known_.find(window);
    if (found == known_.end()) {
        return;
    }
    if (!told) {
        known_.erase(found);
        written_.forget(window);
        std::erase_if(focused_, [window](const auto& focused) { return focused.second == window; });
        return;
    }
    found->second.window = told;
    report(window);
}

Answer<ProcessId> LateWindows::frontmostProcess() {
    return frontmost_ ? Answer<ProcessId>(frontmost_->processIdentifier) : NoAnswer::kNone;
}

Answer<WindowId> LateWindows::focusedWindowOf(ProcessId pid) {
    const auto focused = focused_.find(pid);
    return focused == focused_.end() ? NoAnswer::kNone : Answer<WindowId>(focused->second);
}

Answer<Rect> LateWindows::frameOf(WindowId window) {
    const auto found = known_.find(window);
    if (found == known_.end()) {
        return NoAnswer::kNone;
    }
    const auto& known = found->second;
    if (!known.window) {
        return NoAnswer::kNotKnown;
    }
    const bool isSettled = !known.isWriteQueued && known.unansweredWrites == 0;
    return isSettled ? written_.frameToReport(window, known.window->frame)
                     : known.write.written(known.window->frame);
}

Answer<WindowAbilities> LateWindows::abilitiesOf(WindowId window) {
    const auto frame = frameOf(window);
    if (!frame) {
        return frame.error();
    }
    const auto& known = *known_.at(window).window;
    return WindowAbilities{known.isMovable, known.isResizable, known.isFullScreen};
}

Answer<std::string> LateWindows::titleOf(WindowId window) {
    const auto frame = frameOf(window);
    return frame ? Answer<std::string>(known_.at(window).window->title) : frame.error();
}

bool LateWindows::writePosition(WindowId window, Point position) {
    return queueWrite(window, {.position = position});
}

bool LateWindows::writeSize(WindowId window, Size size) {
    return queueWrite(window, {.size = size});
}

bool LateWindows::queueWrite(WindowId window, const FrameWrite& change) {
    const auto found = known_.find(window);
    if (found == known_.end()) {
        return true; // gone, which a write does not notice
    }
    auto& known = found->second;
    if (!known.isWriteQueued && known.unansweredWrites == 0) {
        known.write = {};
    }
    known.write.position = change.position ? change.position : known.write.position;
    known.write.size = change.size ? change.size : known.write.size;
    if (!std::exchange(known.isWriteQueued, true)) {
        mainLoop_.post([this, window] { sendWrite(window); });
    }
    return true;
}

void LateWindows::sendWrite(WindowId window) {
    const auto found = known_.find(window);
    if (found == known_.end() || !found->second.window) {
        return;
    }
    auto& known = found->second;
    known.isWriteQueued = false;
    ++known.unansweredWrites;
    const Rect before = known.window->frame;
    const SettledFrame asked{known.write.written(before), known.write.asked(before, {}), {}};
    compositor_.place(window, asked.asked, [this, asked](WindowId placed, const auto& answer) {
        if (const auto at = known_.find(placed); at != known_.end() && answer) {
            --at->second.unansweredWrites;
            written_.keep(placed, {asked.written, asked.asked, answer->frame});
        }
        heardWindow(placed, answer);
    });
}

void LateWindows::report(WindowId window) {
    auto& known = known_.at(window);
    if (known.isWriteQueued || known.unansweredWrites > 0) {
        return; // told when it has settled
    }
    const Rect now = frameOf(window).value();
    const auto before = std::exchange(known.reported, now);
    if (before && before->origin() != now.origin()) {
        known.moved.notify();
    }
    if (before && before->size() != now.size()) {
        known.resized.notify();
    }
}

Registration LateWindows::onFocusChange(ProcessId pid, std::function<void()> callback) {
    return focusChanged_.add([pid, callback = std::move(callback)](ProcessId changed) {
        if (changed == pid) {
            callback();
        }
    });
}

Registration LateWindows::onMoved(WindowId window, std::function<void()> callback) {
    const auto found = known_.find(window);
    return found == known_.end() ? Registration() : found->second.moved.add(std::move(callback));
}

Registration LateWindows::onResized(WindowId window, std::function<void()> callback) {
    const auto found = known_.find(window);
    return found == known_.end() ? Registration() : found->second.resized.add(std::move(callback));
}

} // namespace panewright
