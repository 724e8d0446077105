#pragma once

#include "base/geometry.h"
#include "base/observer_list.h"
#include "desktop/shared/windows.h"
#include "desktop/shared/written_frames.h"
#include "platform/main_loop.h"
#include "platform/workspace.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// Programs with windows that a test opens, moves, activates and closes. What the accessibility
/// port and MemoryWorkspace tell follows from this state alone. Writes take effect at once, within
/// the window's limits; notifications of windows come through the main loop.
class MemoryWindows : public Windows {
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

    explicit MemoryWindows(MainLoop& mainLoop) : mainLoop_(mainLoop) {}

    void addApplication(RunningApplication application);
    /// Ends it, its windows with it. What was frontmost stays so until another one is activated.
    void removeApplication(ProcessId pid);

    /// Below its application's other windows: the first one is its focused window, a later one
    /// when it is activated.
    WindowId openWindow(Window window);
    void closeWindow(WindowId window);

    /// Makes the window's application the frontmost one and the window its focused one.
    void activateWindow(WindowId window);
    /// Brings an application to the front whose focused window stays what it was, or none.
    void activateApplication(ProcessId pid);
    /// Brings back the application that was in front before this one; nothing unless this one is
    /// frontmost and another that was still runs.
    void activateApplicationBefore(ProcessId pid);

    /// As the user or the program itself would, within the window's size limits.
    void setFrame(WindowId window, const Rect& frame);

    /// What the user has allowed.
    void setPermitted(bool permitted);
    /// How often the desktop's request for permission was shown.
    int promptsShown() const { return promptsShown_; }
    /// Called before each write to a window, as the moment in which things can happen to it.
    void setBeforeWrite(std::function<void(WindowId)> happening) {
        beforeWrite_ = std::move(happening);
    }

    /// Null for a window that is gone.
    const Window* find(WindowId window) const;
    const std::optional<RunningApplication>& frontmost() const { return frontmost_; }
    Registration onActivation(std::function<void()> callback) {
        return activated_.add(std::move(callback));
    }

    bool isPermitted() const override { return permitted_; }
    void askForPermission() override { ++promptsShown_; }
    Registration onPermitted(std::function<void()> callback) override {
        return addLater(permittedAnew_, std::move(callback));
    }
    Answer<ProcessId> frontmostProcess() override;
    Answer<WindowId> focusedWindowOf(ProcessId pid) override;
    Answer<Rect> frameOf(WindowId window) override;
    Answer<WindowAbilities> abilitiesOf(WindowId window) override;
    Answer<std::string> titleOf(WindowId window) override;
    bool writePosition(WindowId window, Point position) override;
    bool writeSize(WindowId window, Size size) override;
    Registration onFocusChange(ProcessId pid, std::function<void()> callback) override;
    Registration onMoved(WindowId window, std::function<void()> callback) override;
    Registration onResized(WindowId window, std::function<void()> callback) override;

private:
    void bringToFront(ProcessId pid);
    void write(WindowId window, const FrameWrite& change);
    Registration addLater(ObserverList<>& observers, std::function<void()> callback);

    MainLoop& mainLoop_;
    bool permitted_ = true;
    int promptsShown_ = 0;
    ObserverList<> permittedAnew_;
    std::function<void(WindowId)> beforeWrite_;
    std::map<ProcessId, RunningApplication> applications_;
    std::map<WindowId, Window> windows_;
    WrittenFrames written_;
    /// Of each application, the focused one last.
    std::map<ProcessId, std::vector<WindowId>> stacks_;
    std::optional<RunningApplication> frontmost_;
    /// Those that were frontmost and still run, the last one last.
    std::vector<ProcessId> activations_;
    ObserverList<> activated_;
    std::map<ProcessId, ObserverList<>> focusChanged_;
    std::map<WindowId, ObserverList<>> moved_;
    std::map<WindowId, ObserverList<>> resized_;
    WindowId nextWindow_ = 1;
};

} // namespace panewright
