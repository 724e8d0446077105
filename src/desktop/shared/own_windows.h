#pragma once

#include <cstdint>

namespace panewright {

/// A window of ours as the window system names it: a number, or an object's address.
using NativeWindow = std::uintptr_t;
constexpr NativeWindow kNoNativeWindow = 0;

/// What the window system does with the windows of this program. Main thread only.
class OwnWindows {
public:
    virtual ~OwnWindows() = default;

    /// What the points of all positions and sizes are: the pixels of the screen, or else the units
    /// that the toolkit counts.
    virtual bool areInPixels() const = 0;

    /// Whether what is drawn transparent shows what lies behind the window. As it is now; it may
    /// start and end at any time.
    virtual bool areComposited() const = 0;

    /// Keeps a window that is not shown now out of task bars and pagers when it is shown next.
    virtual void keepOutOfTaskBars(NativeWindow window) = 0;

    /// Brings this window of the program to the front and gives it the keyboard, also one that is
    /// only about to be shown. It is what comes forward with the program until it is closed.
    virtual void makeKey(NativeWindow window) = 0;
};

} // namespace panewright
