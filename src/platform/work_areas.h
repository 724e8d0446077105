#pragma once

#include "base/geometry.h"
#include "platform/displays.h"

namespace panewright {

/// What panels and docks leave free of each display. Main thread only.
class WorkAreas {
public:
    virtual ~WorkAreas() = default;

    /// In global points (origin top-left of the main display, y downwards), as it is now. The whole
    /// display where nothing is reserved; empty for a display that is not there.
    virtual Rect workArea(DisplayId display) const = 0;
};

} // namespace panewright
