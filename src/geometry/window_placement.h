#pragma once

#include "accessibility/accessibility_element.h"
#include "base/geometry.h"
#include "geometry/quartz_display.h"
#include "model/window_state.h"

#include <memory>
#include <optional>

namespace panewright {

/// Where a state puts a window, as outer frames in global points (origin top-left of the main
/// display, y downwards).
///
/// A user state keeps the window's place relative to the display that it was saved on, scaled to
/// the target display; a built-in state covers a centred share of the target. A nil display has
/// zero bounds. Either pair of functions takes either kind of state.

/// Height of the menu bar that a frame is shifted up and grown by when it goes to another display.
constexpr double kMenuBarAllowance = 23;

/// Moves the window; false, without touching it, unless its position and size are both settable.
/// A user state that prefers its display goes to the first display of the saved size, if there is
/// one. Whether the window took the frame is not looked at.
bool applyToWindowElement(const WindowState& state,
                          const std::shared_ptr<AccessibilityElement>& element,
                          const std::optional<QuartzDisplay>& inDisplay, const Displays& displays);
bool applyDefaultToWindowElement(const WindowState& state,
                                 const std::shared_ptr<AccessibilityElement>& element,
                                 const std::optional<QuartzDisplay>& inDisplay,
                                 const Displays& displays);

/// The frame that applying on this display asks for, whatever display the state prefers; the zero
/// rectangle when the window is not settable. The centred origin of a built-in state is rounded up
/// here, while applying writes the fraction.
Rect getSizePositionForWindowElement(const WindowState& state,
                                     const std::shared_ptr<AccessibilityElement>& element,
                                     const std::optional<QuartzDisplay>& inDisplay);
Rect getDefaultSizePositionForWindowElement(const WindowState& state,
                                            const std::shared_ptr<AccessibilityElement>& element,
                                            const std::optional<QuartzDisplay>& inDisplay);

} // namespace panewright
