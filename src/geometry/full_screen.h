#pragma once

#include "base/geometry.h"
#include "geometry/quartz_display.h"

#include <optional>

namespace panewright {

/// Whether the rectangle (global points) fills its display: all of it, or all below the menu bar. A
/// nil display has zero bounds.
bool isRectFullscreen(const Rect& rect, const std::optional<QuartzDisplay>& inDisplay);

} // namespace panewright
