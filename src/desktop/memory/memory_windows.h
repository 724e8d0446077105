#pragma once

#include "base/geometry.h"
#include "base/observer_list.h"
#include "platform/accessibility.h"
#include "platform/workspace.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

using MemoryWindowId = std::uint32_t;

/// Programs with windows that a test opens, moves, activates and closes. What its adapters
/// MemoryAccessibility and MemoryWorkspace tell follows from this state alone.
class MemoryWindows {
public:
    struct Window {
        ProcessId pid = 0;
        Rect frame;
        std::string title;
        Size minimumSize;
        Size maximumSize{1e6, 1e6};
        bool isMovable = true;
        bool isResizable = true;
        bool isFullScreen = false;
    };

    void addApplication(RunningApplication application);
    /// Ends it, its windows with it. What was frontmost stays so until another one is activated.
    void removeApplication(ProcessId pid);

    /// Below its application's other windows: the first one is its focused window, a later one
    /// when it is activated.
    MemoryWindowId openWindow(Window window);
    void closeWindow(MemoryWindowId window);

    /// Makes the window's application the frontmost one and the window its focused one.
    void activateWindow(MemoryWindowId window);
    /// Brings an application to the front whose focused window stays what it was, or none.
    void activateApplication(ProcessId pid);
    /// Brings back the application that was in front before this one; nothing unless this one is
    /// frontmost and another that was still runs.
    void activateApplicationBefore(ProcessId pid);

    /// As the user or the program itself would, within the window's size limits.
    void setFrame(MemoryWindowId window, const Rect& frame);

    /// Null for a window that is gone.
    const Window* find(MemoryWindowId window) const;
    std::optional<MemoryWindowId> focusedWindowOf(ProcessId pid) const;
    const std::optional<RunningApplication>& frontmost() const { return frontmost_; }

    Registration onActivation(std::function<void()> callback) {
        return activated_.add(std::move(callback));
    }
    /// Of a window or an application (then the id is its pid), by the notification's name.
    Registration onNotification(std::int64_t subject, std::string_view notification,
                                std::function<void()> callback);

private:
    void notify(std::int64_t subject, std::string_view notification);
    void bringToFront(ProcessId pid);

    std::map<ProcessId, RunningApplication> applications_;
    std::map<MemoryWindowId, Window> windows_;
    /// Of each application, the focused one last.
    std::map<ProcessId, std::vector<MemoryWindowId>> stacks_;
    std::optional<RunningApplication> frontmost_;
    /// Those that were frontmost and still run, the last one last.
    std::vector<ProcessId> activations_;
    ObserverList<> activated_;
    std::map<std::pair<std::int64_t, std::string>, ObserverList<>> notifications_;
    /// Apart from pids, which share the key space of notifications.
    MemoryWindowId nextWindow_ = 1'000'000;
};

} // namespace panewright
