#include "geometry/next_display.h"

#include "base/narrowed.h"
#include "geometry/full_screen.h"

#include <cmath>

namespace panewright {
namespace {

/// How far the corner lies from the display's origin. A corner on the other side of it, or of zero,
/// is mirrored.
float offsetOf(double display, double window) {
    return std::fabs(narrowed(std::fabs(narrowed(display)) - std::fabs(narrowed(window))));
}

/// In 32-bit steps, each of which rounds.
Rect scaledTo(const Rect& target, const Rect& source, const Rect& window) {
    const float ratioX = narrowed(target.width / source.width);
    const float ratioY = narrowed(target.height / source.height);
    const float x = narrowed(offsetOf(source.x, window.x) * ratioX);
    const float y = narrowed(offsetOf(source.y, window.y) * ratioY);
    return {x + target.x, y + target.y, ratioX * window.width, ratioY * window.height};
}

} // namespace

std::optional<QuartzDisplay> getNextDisplayForWindowRect(const Displays& port, const Rect& rect) {
    const auto screens = QuartzDisplay::screens(port);
    bool previousHolds = false;
    for (const auto& display : screens) {
        if (previousHolds) {
            return display;
        }
        previousHolds = contains(display.bounds(), rect.origin());
    }
    return screens.size() >= 2 ? std::optional(screens.front()) : std::nullopt;
}

Rect frameOnNextDisplay(const Rect& windowRect, const std::optional<QuartzDisplay>& current,
                        const QuartzDisplay& next) {
    const Rect frame = isRectFullscreen(windowRect, current)
                           ? next.bounds()
                           : scaledTo(next.bounds(), boundsOf(current), windowRect);
    return {narrowed(frame.x), narrowed(frame.y), narrowed(frame.width), narrowed(frame.height)};
}

} // namespace panewright
