#pragma once

#include "base/geometry.h"

#include <QPoint>
#include <QRect>
#include <QScreen>

namespace panewright {

/// Qt gives each screen a scale: its own coordinates start at the screen's native top left and
/// count units of `devicePixelRatio()` pixels. The rest of the program counts the X server's
/// pixels.

/// The screen that holds the middle of the rectangle, else the primary one; null without screens.
QScreen* screenAt(const Rect& native);

QPoint fromNative(Point native, const QScreen& screen);
Rect toNative(const QRect& rect, const QScreen& screen);
Size toNative(const QSize& size, const QScreen& screen);

} // namespace panewright
