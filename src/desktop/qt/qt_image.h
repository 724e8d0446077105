#pragma once

#include "base/image.h"

#include <QIcon>
#include <QImage>
#include <QList>
#include <QRectF>

#include <functional>
#include <utility>

class QPainter;

namespace panewright {

/// A picture that Qt can paint at any size and scale. Nothing is rasterised before it is painted.
class QtImage : public Image {
public:
    /// Paints the whole picture into the rectangle, and nothing outside it.
    using Paint = std::function<void(QPainter& painter, const QRectF& target)>;

    QtImage(Size size, Paint paint) : size_(size), paint_(std::move(paint)) {}

    Size size() const override { return size_; }
    const Paint& paint() const { return paint_; }

private:
    Size size_;
    Paint paint_;
};

/// Null for null, and for a picture of another toolkit.
const QtImage* qtImageOf(const ImagePtr& image);

/// An icon that paints the image, as large as fits, in its own proportions; a null icon where
/// qtImageOf() is null.
QIcon iconOf(const ImagePtr& image);

/// Paints the picture that suits the size best. What it has scaled is kept for the next time.
QtImage::Paint paintOf(QList<QImage> pictures);

} // namespace panewright
