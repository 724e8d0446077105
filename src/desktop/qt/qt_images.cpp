#include "desktop/qt/qt_images.h"

#include "desktop/qt/icon_file.h"
#include "desktop/qt/qt_colour.h"
#include "desktop/qt/qt_image.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace panewright {
namespace {

/// Where a shape may reach on either side, so that it can be painted at all.
constexpr double kMaxReach = 1e5;

/// Pixels for each point in a file.
constexpr int kFileScale = 2;
/// 72 points are an inch.
constexpr double kPointsPerMeter = 72 / 0.0254;

double bounded(double length, double longest) {
    return length > 0 ? std::min(length, longest) : 0; // also what is no number
}

Size bounded(Size size) {
    return {bounded(size.width, kLargestImage.width), bounded(size.height, kLargestImage.height)};
}

bool isFinite(const Rect& rect) {
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width) &&
           std::isfinite(rect.height);
}

/// A null rectangle for what cannot be painted.
QRectF toPaint(const Rect& rect) {
    const QRectF all(-kMaxReach, -kMaxReach, 2 * kMaxReach, 2 * kMaxReach);
    return isFinite(rect) ? QRectF(rect.x, rect.y, rect.width, rect.height).normalized() & all
                          : QRectF();
}

/// Makes the painter's unit a point of an image of that size, painted into the target, and cuts off
/// what is outside. To be restored.
void enter(QPainter& painter, Size size, const QRectF& target) {
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    painter.translate(target.topLeft());
    painter.scale(target.width() / size.width, target.height() / size.height);
}

void paintShape(QPainter& painter, const PictureShape& shape) {
    const QRectF rect = toPaint(shape.rect);
    if (rect.isEmpty()) {
        return;
    }
    if (shape.kind == PictureShape::Kind::kFill) {
        painter.fillRect(rect, toQt(shape.colour));
        return;
    }
    QPen pen(toQt(shape.colour), shape.lineWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
}

bool isEmpty(Size size) {
    return size.width <= 0 || size.height <= 0;
}

QImage rasterOf(const QtImage& image) {
    const QSize pixels(static_cast<int>(std::ceil(image.size().width * kFileScale)),
                       static_cast<int>(std::ceil(image.size().height * kFileScale)));
    QImage raster(pixels, QImage::Format_ARGB32);
    raster.fill(Qt::transparent);
    if (!raster.isNull()) {
        QPainter painter(&raster);
        image.paint()(painter, QRectF(raster.rect()));
    }
    const auto dots = static_cast<int>(std::lround(kFileScale * kPointsPerMeter));
    raster.setDotsPerMeterX(dots);
    raster.setDotsPerMeterY(dots);
    return raster;
}

/// JPEG knows no transparency, and black is no paper.
QImage onWhite(const QImage& raster) {
    QImage paper(raster.size(), QImage::Format_RGB32);
    paper.setDotsPerMeterX(raster.dotsPerMeterX());
    paper.setDotsPerMeterY(raster.dotsPerMeterY());
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, raster);
    return paper;
}

/// How many pixels of the picture are a point: as many as it says, if it is a whole number.
double scaleOf(const QImage& picture) {
    constexpr double kRounding = 0.01;
    const double scale = picture.dotsPerMeterX() / kPointsPerMeter;
    const double whole = std::round(scale);
    return whole >= 1 && std::abs(scale - whole) < kRounding ? whole : 1;
}

} // namespace

ImagePtr QtImages::imageOfSize(Size size, std::function<Picture()> drawing) {
    const Size shown = bounded(size);
    return std::make_shared<QtImage>(
        shown, [shown, drawing = std::move(drawing)](QPainter& painter, const QRectF& target) {
            if (isEmpty(shown)) {
                return;
            }
            enter(painter, shown, target);
            painter.setRenderHint(QPainter::Antialiasing);
            for (const auto& shape : drawing().shapes) {
                paintShape(painter, shape);
            }
            painter.restore();
        });
}

ImagePtr QtImages::resized(const ImagePtr& image, Size size) {
    const auto* original = qtImageOf(image);
    return original ? std::make_shared<QtImage>(bounded(size), original->paint()) : nullptr;
}

ImagePtr QtImages::composed(Size size, std::vector<PlacedImage> parts) {
    const Size shown = bounded(size);
    return std::make_shared<QtImage>(
        shown, [shown, parts = std::move(parts)](QPainter& painter, const QRectF& target) {
            if (isEmpty(shown)) {
                return;
            }
            enter(painter, shown, target);
            for (const auto& part : parts) {
                const auto* image = qtImageOf(part.image);
                if (const QRectF rect = toPaint(part.rect); image && !rect.isEmpty()) {
                    image->paint()(painter, rect);
                }
            }
            painter.restore();
        });
}

ImagePtr QtImages::imageWithData(const Bytes& data) {
    const QImage picture = readIcon(data);
    if (picture.isNull()) {
        return nullptr;
    }
    const double scale = scaleOf(picture);
    return std::make_shared<QtImage>(bounded({picture.width() / scale, picture.height() / scale}),
                                     paintOf({picture}));
}

std::optional<Bytes> QtImages::representation(const ImagePtr& image, ImageFileType type,
                                              const ImageEncodingOptions& options) {
    const auto* ours = qtImageOf(image);
    if (!ours || isEmpty(ours->size())) {
        return std::nullopt;
    }
    const bool isPng = type == ImageFileType::kPng;
    const QImage raster = rasterOf(*ours);
    QByteArray file;
    QBuffer buffer(&file);
    QImageWriter writer(&buffer, isPng ? "PNG" : "JPEG");
    if (!isPng && options.compressionFactor) {
        constexpr double kBestQuality = 100;
        const double factor = std::clamp(*options.compressionFactor, 0.0, 1.0);
        writer.setQuality(static_cast<int>(std::lround(factor * kBestQuality)));
    }
    if (!writer.write(isPng ? raster : onWhite(raster))) {
        return std::nullopt;
    }
    return Bytes(file.begin(), file.end());
}

} // namespace panewright
