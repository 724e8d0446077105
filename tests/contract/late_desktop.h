#pragma once

#include "base/observer_list.h"
#include "desktop/memory/memory_windows.h"
#include "desktop/shared/windows.h"
#include "desktop/shared/written_frames.h"
#include "platform/workspace.h"

#include <map>
#include <optional>
#include <vector>

namespace panewright {

/// A compositor whose windows are only known from what it tells, some milliseconds later; windows
/// stand on whole pixels.
class LateCompositor {
public:
    struct Told {
        RunningApplication frontmost;
        /// None for a program without windows.
        std::optional<WindowId> focused;
    };
    /// Of one window; the second is empty for a window that is gone.
    using WindowCallback =
        std::function<void(WindowId, const std::optional<MemoryWindows::Window>&)>;

    explicit LateCompositor(MainLoop& mainLoop) : mainLoop_(mainLoop), windows_(mainLoop) {}

    // What its user does.
    void addApplication(RunningApplication application) {
        windows_.addApplication(std::move(application));
    }
    WindowId open(MemoryWindows::Window window) { return windows_.openWindow(std::move(window)); }
    void close(WindowId window);
    void activate(WindowId window);
    void setFrame(WindowId window, const Rect& frame);

    // What programs ask it for. It does so, and answers, later.
    void ask(WindowId window, WindowCallback answer);
    void place(WindowId window, const Rect& frame, WindowCallback answer);
    void activateApplication(ProcessId pid);
    void activateApplicationBefore(ProcessId pid);

    /// What it tells of itself, later.
    ObserverList<const Told&> focusTold;
    ObserverList<WindowId, const std::optional<MemoryWindows::Window>&> windowTold;

private:
    void later(std::function<void()> task);
    std::optional<MemoryWindows::Window> find(WindowId window) const;
    void tellFocus();
    void tellWindow(WindowId window);

    MainLoop& mainLoop_;
    MemoryWindows windows_;
    std::vector<Registration> timers_;
};

/// The windows of that compositor, as far as it has told of them. Nothing waits.
class LateWindows : public Windows {
public:
    LateWindows(LateCompositor& compositor, MainLoop& mainLoop);

    const std::optional<RunningApplication>& frontmost() const { return frontmost_; }
    Registration onActivation(std::function<void()> callback) {
        return activated_.add(std::move(callback));
    }

    bool isPermitted() const override { return true; }
    void askForPermission() override {}
    Registration onPermitted(std::function<void()> /*callback*/) override { return {}; }
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
    struct Known {
        /// Nil until the compositor has told of it.
        std::optional<MemoryWindows::Window> window;
        FrameWrite write;
        bool isWriteQueued = false;
        int unansweredWrites = 0;
        std::optional<Rect> reported;
        ObserverList<> moved;
        ObserverList<> resized;
    };

    void heardFocus(const LateCompositor::Told& told);
    void heardWindow(WindowId window, const std::optional<MemoryWindows::Window>& told);
    void tellFocus(bool isActivation);
    bool queueWrite(WindowId window, const FrameWrite& change);
    void sendWrite(WindowId window);
    void report(WindowId window);

    LateCompositor& compositor_;
    MainLoop& mainLoop_;
    std::optional<RunningApplication> frontmost_;
    std::map<ProcessId, WindowId> focused_;
    std::map<WindowId, Known> known_;
    WrittenFrames written_;
    ObserverList<> activated_;
    ObserverList<ProcessId> focusChanged_;
    Registration focusEvents_;
    Registration windowEvents_;
};

class LateWorkspace : public Workspace {
public:
    LateWorkspace(LateCompositor& compositor, LateWindows& windows, ProcessId ownPid)
        : compositor_(compositor), windows_(windows), ownPid_(ownPid) {}

    std::optional<RunningApplication> frontmostApplication() const override {
        return windows_.frontmost();
    }
    Registration onApplicationActivated(std::function<void()> callback) override {
        return windows_.onActivation(std::move(callback));
    }
    void bringThisApplicationToFront() override { compositor_.activateApplication(ownPid_); }
    void hideThisApplication() override { compositor_.activateApplicationBefore(ownPid_); }
    void openUrl(const std::string& /*url*/) override {}
    void launchApplication(const std::string& /*bundlePath*/) override {}

private:
    LateCompositor& compositor_;
    LateWindows& windows_;
    ProcessId ownPid_;
};

} // namespace panewright
