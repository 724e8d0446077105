#pragma once

#include "base/geometry.h"
#include "ui/popover.h"

#include <QPoint>
#include <QRect>
#include <QScreen>

namespace panewright {

/// The one place where the toolkit's coordinates and the program's meet. Qt gives each screen a
/// scale: its own coordinates start at the screen's native top left and count units of
/// `devicePixelRatio()` pixels. The rest of the program counts what the window system does: pixels,
/// or the same units.

/// Which of them it is. Called before a view is made; until then it is pixels.
void setNativeUnitIsPixel(bool isPixel);

/// The screen that holds the middle of the rectangle, else the primary one; null without screens.
QScreen* screenAt(const Rect& native);

Rect toNative(const QRect& rect, const QScreen& screen);

/// The same anchor in the screen's own units.
PopoverAnchor fromNative(const PopoverAnchor& anchor, const QScreen& screen);

// Whole units of the toolkit.
inline QPoint toQt(Point point) {
    return {static_cast<int>(point.x), static_cast<int>(point.y)};
}
inline Size fromQt(const QSize& size) {
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

} // namespace panewright
