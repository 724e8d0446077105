#include "desktop/qt/qt_image.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <memory>

namespace panewright {
namespace {

/// In its own proportions.
class ImageIconEngine : public QIconEngine {
public:
    explicit ImageIconEngine(ImagePtr image) : image_(std::move(image)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
               QIcon::State /*state*/) override {
        QRectF target(QPointF(), fitting(rect.size()));
        target.moveCenter(QRectF(rect).center());
        qtImageOf(image_)->paint()(*painter, target);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(actualSize(size, mode, state));
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return fitting(size).toSize().expandedTo({1, 1}).boundedTo(size);
    }
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {ownSize().toSize()};
    }
    QIconEngine* clone() const override { return new ImageIconEngine(image_); }
    QString key() const override { return "panewright"; }

private:
    QSizeF ownSize() const { return {image_->size().width, image_->size().height}; }
    QSizeF fitting(QSize size) const {
        return ownSize().isEmpty() ? QSizeF(size) : ownSize().scaled(size, Qt::KeepAspectRatio);
    }

    ImagePtr image_;
};

/// Rasters of one picture, and one of them as it was painted last.
class KeptRaster {
public:
    explicit KeptRaster(QList<QImage> pictures) : pictures_(std::move(pictures)) {}

    void paint(QPainter& painter, const QRectF& target) {
        const QSize pixels = painter.deviceTransform().mapRect(target).size().toSize();
        const QImage& best = bestFor(pixels);
        if (best.isNull() || pixels.isEmpty()) {
            return;
        }
        const QSize size = best.size().scaled(pixels, Qt::KeepAspectRatio).expandedTo({1, 1});
        if (kept_.size() != size) {
            kept_ = best.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
        QRectF place(QPointF(), QSizeF(size).scaled(target.size(), Qt::KeepAspectRatio));
        place.moveCenter(target.center());
        painter.drawImage(place, kept_);
    }

private:
    /// The smallest one that need not grow, else the largest.
    const QImage& bestFor(QSize pixels) const {
        return *std::ranges::min_element(pictures_, {}, [&](const QImage& picture) {
            const bool grows = picture.width() < pixels.width();
            return std::pair(grows, grows ? -picture.width() : picture.width());
        });
    }

    QList<QImage> pictures_;
    QImage kept_;
};

} // namespace

const QtImage* qtImageOf(const ImagePtr& image) {
    return dynamic_cast<const QtImage*>(image.get());
}

QIcon iconOf(const ImagePtr& image) {
    return qtImageOf(image) ? QIcon(new ImageIconEngine(image)) : QIcon();
}

QtImage::Paint paintOf(QList<QImage> pictures) {
    auto raster = std::make_shared<KeptRaster>(std::move(pictures));
    return [raster](QPainter& painter, const QRectF& target) { raster->paint(painter, target); };
}

} // namespace panewright
