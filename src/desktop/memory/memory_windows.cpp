#include "desktop/memory/memory_windows.h"

#include <algorithm>
#include <utility>

namespace panewright {

void MemoryWindows::addApplication(RunningApplication application) {
    applications_.insert_or_assign(application.processIdentifier, application);
}

void MemoryWindows::removeApplication(ProcessId pid) {
    applications_.erase(pid);
    stacks_.erase(pid);
    std::erase(activations_, pid);
    std::erase_if(windows_, [pid](const auto& window) { return window.second.pid == pid; });
}

WindowId MemoryWindows::openWindow(Window window) {
    const auto id = nextWindow_++;
    auto& stack = stacks_[window.pid];
    stack.insert(stack.begin(), id);
    windows_.emplace(id, std::move(window));
    return id;
}

void MemoryWindows::closeWindow(WindowId window) {
    if (const auto closed = windows_.extract(window)) {
        std::erase(stacks_[closed.mapped().pid], window);
        written_.forget(window);
    }
}

void MemoryWindows::activateWindow(WindowId window) {
    const auto pid = windows_.at(window).pid;
    auto& stack = stacks_[pid];
    const auto before = stack.back();
    std::erase(stack, window);
    stack.push_back(window);
    if (frontmost_ && frontmost_->processIdentifier == pid && before != window) {
        focusChanged_[pid].notify();
    }
    bringToFront(pid);
}

void MemoryWindows::activateApplication(ProcessId pid) {
    bringToFront(pid);
}

void MemoryWindows::activateApplicationBefore(ProcessId pid) {
    if (activations_.size() > 1 && activations_.back() == pid) {
        bringToFront(activations_[activations_.size() - 2]);
    }
}

void MemoryWindows::bringToFront(ProcessId pid) {
    const auto& application = applications_.at(pid);
    std::erase(activations_, pid);
    activations_.push_back(pid);
    if (frontmost_ != application) {
        frontmost_ = application;
        activated_.notify();
    }
}

void MemoryWindows::setFrame(WindowId window, const Rect& frame) {
    const auto found = windows_.find(window);
    if (found == windows_.end()) {
        return;
    }
    auto& changed = found->second;
    const Rect before = std::exchange(
        changed.frame,
        makeRect(
            frame.origin(),
            {std::clamp(frame.width, changed.minimumSize.width, changed.maximumSize.width),
             std::clamp(frame.height, changed.minimumSize.height, changed.maximumSize.height)}));
    const Rect after = changed.frame;
    if (before.origin() != after.origin()) {
        moved_[window].notify();
    }
    if (before.size() != after.size()) {
        resized_[window].notify();
    }
}

void MemoryWindows::setPermitted(bool permitted) {
    if (!std::exchange(permitted_, permitted) && permitted) {
        permittedAnew_.notify();
    }
}

const MemoryWindows::Window* MemoryWindows::find(WindowId window) const {
    const auto found = windows_.find(window);
    return found == windows_.end() ? nullptr : &found->second;
}

Answer<ProcessId> MemoryWindows::frontmostProcess() {
    return frontmost_ ? Answer<ProcessId>(frontmost_->processIdentifier) : NoAnswer::kNone;
}

Answer<WindowId> MemoryWindows::focusedWindowOf(ProcessId pid) {
    const auto stack = stacks_.find(pid);
    return stack == stacks_.end() || stack->second.empty() ? NoAnswer::kNone
                                                           : Answer<WindowId>(stack->second.back());
}

Answer<Rect> MemoryWindows::frameOf(WindowId window) {
    const auto* found = find(window);
    return found ? Answer<Rect>(written_.frameToReport(window, found->frame)) : NoAnswer::kNone;
}

Answer<WindowAbilities> MemoryWindows::abilitiesOf(WindowId window) {
    const auto* found = find(window);
    if (!found) {
        return NoAnswer::kNone;
    }
    return WindowAbilities{found->isMovable, found->isResizable, found->isFullScreen};
}

Answer<std::string> MemoryWindows::titleOf(WindowId window) {
    const auto* found = find(window);
    return found ? Answer<std::string>(found->title) : NoAnswer::kNone;
}

bool MemoryWindows::writePosition(WindowId window, Point position) {
    write(window, {.position = position});
    return true;
}

bool MemoryWindows::writeSize(WindowId window, Size size) {
    write(window, {.size = size});
    return true;
}

void MemoryWindows::write(WindowId window, const FrameWrite& change) {
    if (beforeWrite_) {
        beforeWrite_(window);
    }
    const auto* found = find(window);
    if (!found) {
        return;
    }
    // What was written before and stands is part of what is written now.
    const Rect written = change.written(written_.frameToReport(window, found->frame));
    setFrame(window, makeRect(change.position.value_or(found->frame.origin()),
                              change.size.value_or(found->frame.size())));
    written_.keep(window, {written, written, found->frame});
}

Registration MemoryWindows::onFocusChange(ProcessId pid, std::function<void()> callback) {
    return addLater(focusChanged_[pid], std::move(callback));
}

Registration MemoryWindows::onMoved(WindowId window, std::function<void()> callback) {
    return find(window) ? addLater(moved_[window], std::move(callback)) : Registration();
}

Registration MemoryWindows::onResized(WindowId window, std::function<void()> callback) {
    return find(window) ? addLater(resized_[window], std::move(callback)) : Registration();
}

/// The callback comes through the main loop, unless it is taken back before.
Registration MemoryWindows::addLater(ObserverList<>& observers, std::function<void()> callback) {
    auto wanted = std::make_shared<std::function<void()>>(std::move(callback));
    auto registered = std::make_shared<Registration>(observers.add([this, wanted] {
        mainLoop_.post([wanted] {
            if (const auto stillWanted = *wanted) {
                stillWanted();
            }
        });
    }));
    return Registration([wanted, registered] {
        *wanted = nullptr;
        registered->release();
    });
}

} // namespace panewright
