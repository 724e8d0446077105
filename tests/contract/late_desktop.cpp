#include "contract/late_desktop.h"

#include <chrono>
#include <utility>

namespace panewright {

void LateCompositor::later(std::function<void()> task) {
    timers_.push_back(mainLoop_.after(std::chrono::milliseconds(5), std::move(task)));
}

LateCompositor::ToldWindow LateCompositor::find(WindowId window) const {
    const auto* found = windows_.find(window);
    return found ? ToldWindow(*found) : std::nullopt;
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

void LateCompositor::place(WindowId window, const FrameWrite& change,
                           std::function<void(const ToldWindow&)> answer) {
    later([this, window, change, answer = std::move(answer)] {
        if (const auto* placed = windows_.find(window)) {
            setFrame(window, change.asked(placed->frame, {}));
        }
        later([answer, found = find(window)] { answer(found); });
    });
}

void LateCompositor::bringToFront(std::function<void(MemoryWindows&)> application) {
    later([this, application = std::move(application)] {
        application(windows_);
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

LateWindows::LateWindows(LateCompositor& compositor, ProcessId ownPid)
    : compositor_(compositor), ownPid_(ownPid),
      focusEvents_(compositor.focusTold.add([this](const auto& told) { heardFocus(told); })),
      windowEvents_(compositor.windowTold.add(
          [this](WindowId window, const auto& told) { heardWindow(window, told); })) {}

/// What is told of the focus only names the window: whoever tracks it is told when its frame is
/// known too.
void LateWindows::heardFocus(const LateCompositor::Told& told) {
    const bool isActivation = std::exchange(frontmost_, told.frontmost) != told.frontmost;
    const auto pid = told.frontmost.processIdentifier;
    if (!told.focused) {
        focused_.erase(pid);
    } else if (const auto window = focused_[pid] = *told.focused; !known_[window].window) {
        compositor_.place(window, {}, [this, window, isActivation](const auto& answer) {
            heardWindow(window, answer);
            tellFocus(isActivation);
        });
        return;
    }
    tellFocus(isActivation);
}

void LateWindows::tellFocus(bool isActivation) {
    if (isActivation) {
        activated_.notify();
    } else {
        focusChanged_[frontmost_->processIdentifier].notify();
    }
}

void LateWindows::heardWindow(WindowId window, const LateCompositor::ToldWindow& told) {
    const auto found = known_.find(window);
    if (found != known_.end() && told) {
        found->second.window = told;
        report(window, found->second);
    } else if (found != known_.end()) {
        known_.erase(found);
        written_.forget(window);
        std::erase_if(focused_, [window](const auto& focused) { return focused.second == window; });
    }
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
    return known.unansweredWrites == 0 ? written_.frameToReport(window, known.window->frame)
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
    write(window, {.position = position});
    return true;
}

bool LateWindows::writeSize(WindowId window, Size size) {
    write(window, {.size = size});
    return true;
}

void LateWindows::write(WindowId window, const FrameWrite& change) {
    const auto found = known_.find(window);
    if (found == known_.end()) {
        return; // gone, which a write does not notice
    }
    auto& known = found->second;
    if (known.unansweredWrites++ == 0) {
        known.write = {};
    }
    known.write.position = change.position ? change.position : known.write.position;
    known.write.size = change.size ? change.size : known.write.size;
    compositor_.place(window, change, [this, window](const auto& answer) {
        if (const auto at = known_.find(window); at != known_.end() && answer) {
            const auto& [written, settled] = std::pair(at->second.write, answer->frame);
            --at->second.unansweredWrites;
            written_.keep(window, {written.written(settled), written.asked(settled, {}), settled});
        }
        heardWindow(window, answer);
    });
}

void LateWindows::report(WindowId window, Known& known) {
    if (known.unansweredWrites > 0) {
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

Registration LateWindows::onMoved(WindowId window, std::function<void()> callback) {
    const auto found = known_.find(window);
    return found == known_.end() ? Registration() : found->second.moved.add(std::move(callback));
}

Registration LateWindows::onResized(WindowId window, std::function<void()> callback) {
    const auto found = known_.find(window);
    return found == known_.end() ? Registration() : found->second.resized.add(std::move(callback));
}

void LateWindows::bringThisApplicationToFront() {
    compositor_.bringToFront([pid = ownPid_](auto& windows) { windows.activateApplication(pid); });
}

void LateWindows::hideThisApplication() {
    compositor_.bringToFront(
        [pid = ownPid_](auto& windows) { windows.activateApplicationBefore(pid); });
}

} // namespace panewright
