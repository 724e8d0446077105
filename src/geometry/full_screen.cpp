#include "geometry/full_screen.h"

#include "geometry/window_placement.h"

namespace panewright {
namespace {

/// How much shorter than its display a window below the menu bar may be and count as full-screen.
constexpr double kFullscreenTolerance = 30;

} // namespace

bool isRectFullscreen(const Rect& rect, const std::optional<QuartzDisplay>& inDisplay) {
    const Rect display = boundsOf(inDisplay);
    const bool isBelowMenuBar = rect.x == display.x && rect.y == display.y + kMenuBarAllowance &&
                                rect.width == display.width &&
                                rect.height >= display.height - kFullscreenTolerance;
    return isBelowMenuBar || rect == display;
}

} // namespace panewright
