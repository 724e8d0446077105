#pragma once

#include "base/geometry.h"
#include "base/registration.h"
#include "base/result.h"
#include "platform/accessibility.h"

#include <cstdint>
#include <functional>
#include <string>

namespace panewright {

/// A window, by the number that its desktop knows it by.
using WindowId = std::uint64_t;

/// Why there is no answer.
enum class NoAnswer {
    /// The window is gone, or there is none.
    kNone,
    /// The desktop has been asked and has not said yet: a compositor answers late.
    kNotKnown,
};

template <class Value>
using Answer = Result<Value, NoAnswer>;

/// What the window itself would allow, were it in no state that keeps it in its place.
struct WindowAbilities {
    bool isMovable = true;
    bool isResizable = true;
    bool isFullScreen = false;
};

/// The windows of a desktop that has no accessibility interface, typed. WindowsAccessibility makes
/// the port of it.
///
/// Frames are outer frames in global points. Reading a frame after a write keeps the promise of
/// Accessibility::setAttributeValue: WrittenFrames helps. Main thread only; callbacks come on the
/// main loop, between events, until the registration is released.
class Windows {
public:
    virtual ~Windows() = default;

    /// Whether this program may reach the windows of others now.
    virtual bool isPermitted() const = 0;
    /// Shows the desktop's request for that permission; nothing where there is none.
    virtual void askForPermission() = 0;
    /// Called after permission came that was missing. Empty where it cannot come later.
    virtual Registration onPermitted(std::function<void()> callback) = 0;

    /// The program that the user is in.
    virtual Answer<ProcessId> frontmostProcess() = 0;
    /// The window of the program that has the keyboard, or would have it.
    virtual Answer<WindowId> focusedWindowOf(ProcessId pid) = 0;

    virtual Answer<Rect> frameOf(WindowId window) = 0;
    virtual Answer<WindowAbilities> abilitiesOf(WindowId window) = 0;
    /// As its program has it; kNone also for a window without a title.
    virtual Answer<std::string> titleOf(WindowId window) = 0;

    /// Asks for it and does not wait. The value is finite and the size at least 1 by 1. False, and
    /// nothing is written, for what the window system cannot express; a window that is gone is not
    /// noticed.
    virtual bool writePosition(WindowId window, Point position) = 0;
    virtual bool writeSize(WindowId window, Size size) = 0;

    /// Called after another window of the frontmost program, which is `pid`, got the keyboard.
    virtual Registration onFocusChange(ProcessId pid, std::function<void()> callback) = 0;
    /// Called after the frame, as frameOf() tells it, changed. Empty for a window that is gone.
    virtual Registration onMoved(WindowId window, std::function<void()> callback) = 0;
    virtual Registration onResized(WindowId window, std::function<void()> callback) = 0;
};

} // namespace panewright
