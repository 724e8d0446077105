#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace panewright {

/// An icon from one of the program's pictures in one colour, drawn in `colour` at any size and
/// scale. An `outline` that can be seen goes around it, for grounds whose brightness is not known.
/// `width` by `height` points of the picture stand in a square of `length` points.
QIcon statusIcon(const QString& imageName, QSizeF imageSize, double length, QColor colour,
                 QColor outline = Qt::transparent);

} // namespace panewright
