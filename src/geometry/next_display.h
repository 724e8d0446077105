#pragma once

#include "base/geometry.h"
#include "geometry/quartz_display.h"

#include <optional>

namespace panewright {

/// Going from one display to the next, in the order of the toolkit's screens. Rectangles are in
/// global points (origin top-left of the main display, y downwards); a nil display has zero bounds.

/// The display after the one that holds the rectangle's top-left corner; the first one after the
/// last, or when no display holds the corner. Nil when there is none or only one.
std::optional<QuartzDisplay> getNextDisplayForWindowRect(const Displays& port, const Rect& rect);

/// The frame of a window that goes from one display to another and keeps its place and share; one
/// that fills its display fills the other. Computed in 32-bit floats, so only nearly exact. From a
/// nil display nothing finite comes out.
Rect frameOnNextDisplay(const Rect& windowRect, const std::optional<QuartzDisplay>& current,
                        const QuartzDisplay& next);

} // namespace panewright
