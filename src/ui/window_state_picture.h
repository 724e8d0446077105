#pragma once

#include "base/picture.h"

namespace panewright {

// The small pictures of states: a display with a window in it.

/// The canvas, in points, of a picture whose display says nothing of its shape.
inline constexpr Size kDefaultCanvas{28, 16};

/// The canvas for a display of that size: 28 points wide and as high as the display's shape asks
/// for; kDefaultCanvas unless both width and height are finite and above zero.
Size canvasFor(Size display);

/// Where the window stands on the canvas, in points from its top left: both are global rectangles.
/// A window of the whole display, or of its whole width and all but 35 points of its height, fills
/// the canvas; any other lies inside a frame of one point. Nothing is rounded, and a window partly
/// off its display is partly off the canvas. Where the display has no size to compare with, any
/// other is empty.
Rect windowArea(const Rect& window, const Rect& display);

/// Where a window stands on kDefaultCanvas that covers that share of its display's width and
/// height, in the middle of it.
Rect scaledWindowArea(Size windowScale);

/// The picture with these two: white, the window's area, and a black outline around the canvas.
Picture windowStatePicture(Size canvas, const Rect& windowArea);

} // namespace panewright
