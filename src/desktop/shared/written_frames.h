#pragma once

#include "base/geometry.h"
#include "desktop/shared/windows.h"

#include <map>
#include <optional>
#include <vector>

namespace panewright {

/// What is asked for when a frame is written, and what reading gives afterwards: the rules of every
/// desktop whose windows stand on whole pixels. All frames are outer ones, in global points.

/// A position is rounded up, so that it equals the centred one that a state computes; a fraction
/// below 1/512 is noise of 32-bit steps and dropped before. A size is rounded to the nearest; it
/// is at least 1 (windows.h).
Point roundedPosition(Point position);
Size roundedSize(Size size);

/// A display, and what panels leave free of it.
struct DisplayArea {
    Rect bounds;
    Rect workArea;

    friend bool operator==(const DisplayArea&, const DisplayArea&) = default;
};

/// The frame that is asked for when `written` (whole pixels) is written. Desktops differ in what
/// they make of a window that covers a whole display with a panel on it, so each is asked for the
/// display's work area instead. Any other frame is asked for as it is: one without a panel, a
/// smaller one, and one that reaches onto another display (a mirror is none).
Rect frameToAsk(const Rect& written, const std::vector<DisplayArea>& displays);

/// What has been written to a window since it settled last. What was not written is as the window
/// has it, in the frame that each operation is given.
struct FrameWrite {
    std::optional<Point> position;
    std::optional<Size> size;

    /// As it is read back: the position rounded up, the size as it was written.
    Rect written(const Rect& frame) const;
    /// As the desktop is asked for it.
    Rect asked(const Rect& frame, const std::vector<DisplayArea>& displays) const;
};

/// What came of a write.
struct SettledFrame {
    Rect written;
    Rect asked;
    /// Where the window stood then.
    Rect settled;
};

/// What was written to windows and where they came to stand.
class WrittenFrames {
public:
    void keep(WindowId window, const SettledFrame& frame) { frames_[window] = frame; }
    /// For a window that is gone: another may get its number.
    void forget(WindowId window) { frames_.erase(window); }

    /// What reading the window gives: the written frame while the window still stands where it
    /// settled and no edge of that is more than 64 points from what was asked for; else the true
    /// one.
    Rect frameToReport(WindowId window, const Rect& trueFrame) const;

private:
    std::map<WindowId, SettledFrame> frames_;
};

} // namespace panewright
