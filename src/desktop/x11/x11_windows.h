#pragma once

#include "desktop/shared/windows.h"
#include "desktop/x11/active_windows.h"
#include "desktop/x11/frame_writer.h"
#include "desktop/x11/window_facts.h"
#include "desktop/x11/window_frame_watch.h"

namespace panewright {

/// The windows of an X session, known by their X identifiers. Positions and sizes are outer frames
/// in root-window pixels.
class X11Windows : public Windows {
public:
    X11Windows(XConnection& connection, WindowManager& manager, WindowFactsOfTurn& facts,
               ActiveWindows& activeWindows, const X11WorkAreas& workAreas, MainLoop& mainLoop);

    /// What a key press means from now on: the window that is active now, and windows as the
    /// presses before have left them. Waits, at most half a second, for writes that have not
    /// settled, then once for the server, and tells those who observe of what it finds.
    void catchUp();

    /// While the connection to the X server lives; nobody can be asked for another.
    bool isPermitted() const override { return !connection_.isLost(); }
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
    XConnection& connection_;
    WindowFactsOfTurn& facts_;
    ActiveWindows& activeWindows_;
    FrameWriter writer_;
    WindowFrameWatch frames_;
};

} // namespace panewright
