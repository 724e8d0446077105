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

MemoryWindowId MemoryWindows::openWindow(Window window) {
    const auto id = nextWindow_++;
    auto& stack = stacks_[window.pid];
    stack.insert(stack.begin(), id);
    windows_.emplace(id, std::move(window));
    return id;
}

void MemoryWindows::closeWindow(MemoryWindowId window) {
    if (const auto closed = windows_.extract(window)) {
        std::erase(stacks_[closed.mapped().pid], window);
    }
}

void MemoryWindows::activateWindow(MemoryWindowId window) {
    const auto pid = windows_.at(window).pid;
    const auto before = focusedWindowOf(pid);
    auto& stack = stacks_[pid];
    std::erase(stack, window);
    stack.push_back(window);
    if (frontmost_ && frontmost_->processIdentifier == pid && before != window) {
        notify(pid, NSAccessibilityMainWindowChangedNotification);
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

void MemoryWindows::setFrame(MemoryWindowId window, const Rect& frame) {
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
        notify(window, NSAccessibilityWindowMovedNotification);
    }
    if (before.size() != after.size()) {
        notify(window, NSAccessibilityWindowResizedNotification);
    }
}

const MemoryWindows::Window* MemoryWindows::find(MemoryWindowId window) const {
    const auto found = windows_.find(window);
    return found == windows_.end() ? nullptr : &found->second;
}

std::optional<MemoryWindowId> MemoryWindows::focusedWindowOf(ProcessId pid) const {
    const auto stack = stacks_.find(pid);
    return stack == stacks_.end() || stack->second.empty() ? std::nullopt
                                                           : std::optional(stack->second.back());
}

Registration MemoryWindows::onNotification(std::int64_t subject, std::string_view notification,
                                           std::function<void()> callback) {
    return notifications_[{subject, std::string(notification)}].add(std::move(callback));
}

void MemoryWindows::notify(std::int64_t subject, std::string_view notification) {
    if (const auto observers = notifications_.find({subject, std::string(notification)});
        observers != notifications_.end()) {
        observers->second.notify();
    }
}

} // namespace panewright
