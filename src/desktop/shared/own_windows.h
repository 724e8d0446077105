#pragma once

#include <cstdint>

namespace panewright {

/// What the window system does with the windows of this program. Main thread only.
class OwnWindows {
public:
    virtual ~OwnWindows() = default;

    /// Whether what is drawn transparent shows what lies behind the window. As it is now; it may
    /// start and end at any time.
    virtual bool areComposited() const = 0;

    /// Keeps a window that is not shown now out of task bars and pagers when it is shown next. The
    /// number is the window system's.
    virtual void keepOutOfTaskBars(std::uint32_t window) = 0;
};

} // namespace panewright
