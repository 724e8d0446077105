#include "geometry/window_placement.h"

#include "base/narrowed.h"
#include "geometry/frame_attributes.h"

#include <algorithm>
#include <cmath>

namespace panewright {
namespace {

/// The frame of a user state on the display with the bounds `target`. That of a state saved without
/// a display is not finite: the desktop refuses it.
Rect userFrame(const WindowState& state, const Rect& target) {
    const Rect& saved = state.originalWindowRect();
    const Rect& source = state.originalQuartzDisplayBounds();
    if (source == target) {
        return saved;
    }
    return {
        std::round((saved.x - source.x) / source.width * target.width + target.x),
        std::round((saved.y - source.y) / source.height * target.height + target.y) -
            kMenuBarAllowance,
        saved.width / source.width * target.width,
        saved.height / source.height * target.height + kMenuBarAllowance,
    };
}

/// The frame of a built-in state, whose origin is rounded so where it is centred. A scale above 1
/// counts as 1.
Rect builtInFrame(const WindowState& state, const Rect& target, Size pixels,
                  double (*rounded)(double)) {
    const double scaleX = std::min(1.0, state.windowScale().width);
    const double scaleY = std::min(1.0, state.windowScale().height);
    Rect frame{target.x, target.y, pixels.width * scaleX, pixels.height * scaleY};
    if (scaleX < 1.0) {
        frame.x = rounded(target.x + (pixels.width - frame.width) * 0.5);
    }
    if (scaleY < 1.0) {
        frame.y = rounded(target.y + (pixels.height - frame.height) * 0.5);
    }
    return frame;
}

double unrounded(double coordinate) {
    return coordinate;
}

/// Up to the next whole number, as a 32-bit float sees it.
double roundedUp(double coordinate) {
    return std::ceil(narrowed(coordinate));
}

/// The first display of exactly the saved display's size, else the given one.
std::optional<QuartzDisplay> preferredDisplay(const WindowState& state,
                                              const std::optional<QuartzDisplay>& given,
                                              const Displays& port) {
    if (!state.prefersDisplay()) {
        return given;
    }
    const auto displays = QuartzDisplay::displays(port);
    const auto found = std::find_if(displays.begin(), displays.end(), [&](const auto& display) {
        return display.bounds().size() == state.originalQuartzDisplayBounds().size();
    });
    return found == displays.end() ? given : *found;
}

} // namespace

bool applyToWindowElement(const WindowState& state,
                          const std::shared_ptr<AccessibilityElement>& element,
                          const std::optional<QuartzDisplay>& inDisplay, const Displays& displays) {
    if (state.isDefault()) {
        return applyDefaultToWindowElement(state, element, inDisplay, displays);
    }
    if (!isFrameSettable(element, kPositionThenSize)) {
        return false;
    }
    const auto target = preferredDisplay(state, inDisplay, displays);
    writeFrame(*element, userFrame(state, boundsOf(target)));
    return true;
}

bool applyDefaultToWindowElement(const WindowState& state,
                                 const std::shared_ptr<AccessibilityElement>& element,
                                 const std::optional<QuartzDisplay>& inDisplay,
                                 const Displays& displays) {
    if (!state.isDefault()) {
        return applyToWindowElement(state, element, inDisplay, displays);
    }
    if (!isFrameSettable(element, kPositionThenSize)) {
        return false;
    }
    writeFrame(*element,
               builtInFrame(state, boundsOf(inDisplay), pixelSizeOf(inDisplay), unrounded));
    return true;
}

Rect getSizePositionForWindowElement(const WindowState& state,
                                     const std::shared_ptr<AccessibilityElement>& element,
                                     const std::optional<QuartzDisplay>& inDisplay) {
    if (state.isDefault()) {
        return getDefaultSizePositionForWindowElement(state, element, inDisplay);
    }
    return isFrameSettable(element, kPositionThenSize) ? userFrame(state, boundsOf(inDisplay))
                                                       : Rect{};
}

Rect getDefaultSizePositionForWindowElement(const WindowState& state,
                                            const std::shared_ptr<AccessibilityElement>& element,
                                            const std::optional<QuartzDisplay>& inDisplay) {
    if (!state.isDefault()) {
        return getSizePositionForWindowElement(state, element, inDisplay);
    }
    return isFrameSettable(element, kPositionThenSize)
               ? builtInFrame(state, boundsOf(inDisplay), pixelSizeOf(inDisplay), roundedUp)
               : Rect{};
}

} // namespace panewright
