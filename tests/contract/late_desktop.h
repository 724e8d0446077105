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
    /// Nil for a window that is gone.
    using ToldWindow = std::optional<MemoryWindows::Window>;

    explicit LateCompositor(MainLoop& mainLoop) : mainLoop_(mainLoop), windows_(mainLoop) {}

    // What its user does.
    void addApplication(const RunningApplication& application) {
        windows_.addApplication(application);
    }
    WindowId open(const MemoryWindows::Window& window) { return windows_.openWindow(window); }
    void close(WindowId window);
    void activate(WindowId window);
    void setFrame(WindowId window, const Rect& frame);

    // What programs ask it for. It does so later, and then answers with the window; no change only
    // asks.
    void place(WindowId window, const FrameWrite& change,
               std::function<void(const ToldWindow&)> answer);
    void bringToFront(std::function<void(MemoryWindows&)> application);

    /// What it tells of itself, later.
    ObserverList<const Told&> focusTold;
    ObserverList<WindowId, const ToldWindow&> windowTold;

private:
    void later(std::function<void()> task);
    ToldWindow find(WindowId window) const;
    void tellFocus();
    void tellWindow(WindowId window);

    MainLoop& mainLoop_;
    MemoryWindows windows_;
    std::vector<Registration> timers_;
};

/// The windows of that compositor, as far as it has told of them, and its programs. Nothing waits.
class LateWindows : public Windows, public Workspace {
public:
    LateWindows(LateCompositor& compositor, ProcessId ownPid);

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
    Registration onFocusChange(ProcessId pid, std::function<void()> callback) override {
        return focusChanged_[pid].add(std::move(callback));
    }
    Registration onMoved(WindowId window, std::function<void()> callback) override;
    Registration onResized(WindowId window, std::function<void()> callback) override;

    std::optional<RunningApplication> frontmostApplication() const override { return frontmost_; }
    Registration onApplicationActivated(std::function<void()> callback) override {
        return activated_.add(std::move(callback));
    }
    void bringThisApplicationToFront() override;
    void hideThisApplication() override;
    void openUrl(const std::string& /*url*/) override {}
    void openFile(const std::filesystem::path& /*file*/) override {}
    void launchApplication(const std::string& /*bundlePath*/) override {}

private:
    struct Known {
        /// Nil until the compositor has told of it.
        LateCompositor::ToldWindow window;
        FrameWrite write;
        int unansweredWrites = 0;
        std::optional<Rect> reported;
        ObserverList<> moved;
        ObserverList<> resized;
    };

    void heardFocus(const LateCompositor::Told& told);
    void heardWindow(WindowId window, const LateCompositor::ToldWindow& told);
    void tellFocus(bool isActivation);
    void write(WindowId window, const FrameWrite& change);
    void report(WindowId window, Known& known);

    LateCompositor& compositor_;
    ProcessId ownPid_;
    std::optional<RunningApplication> frontmost_;
    std::map<ProcessId, WindowId> focused_;
    std::map<WindowId, Known> known_;
    WrittenFrames written_;
    ObserverList<> activated_;
    std::map<ProcessId, ObserverList<>> focusChanged_;
    Registration focusEvents_;
    Registration windowEvents_;
};

} // namespace panewright
