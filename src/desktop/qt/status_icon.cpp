#include "desktop/qt/status_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <array>
#include <memory>

namespace panewright {
namespace {

// The icon sizes of panels at scale 1, in pixels.
constexpr int kSmallest = 16;
constexpr int kLargest = 32;

class StatusIconEngine : public QIconEngine {
public:
    StatusIconEngine(const QString& imageName, QSizeF imageSize, double length, QColor colour,
                     QColor outline)
        : renderer_(std::make_shared<QSvgRenderer>(":/images/" + imageName + ".svg")),
          imageSize_(imageSize), length_(length), colour_(colour), outline_(outline) {}

    QIconEngine* clone() const override { return new StatusIconEngine(*this); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    /// Hosts on the bus are sent these, and find one that they need not scale.
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        QList<QSize> sizes;
        for (int side = kSmallest; side <= kLargest; side += 2) {
            sizes.append({side, side});
        }
        return sizes;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
               QIcon::State /*state*/) override {
        const auto ratio = painter->device()->devicePixelRatioF();
        const auto place = placeIn(rect);
        if (outline_.alpha() > 0) {
            const auto halo =
                coloured(rect.size(), place.translated(-rect.topLeft()), ratio, outline_);
            constexpr std::array kAround{QPoint{-1, 0}, QPoint{1, 0}, QPoint{0, -1}, QPoint{0, 1}};
            for (const auto& offset : kAround) {
                painter->drawPixmap(rect.topLeft() + offset, halo);
            }
        }
        painter->drawPixmap(rect.topLeft(), coloured(rect.size(), place.translated(-rect.topLeft()),
                                                     ratio, colour_));
    }

private:
    /// On whole units, for sharp edges.
    QRectF placeIn(const QRect& rect) const {
        const double scale = qMin(rect.width(), rect.height()) / length_;
        const QSizeF size(qRound(imageSize_.width() * scale), qRound(imageSize_.height() * scale));
        return {QPointF(rect.x() + qRound((rect.width() - size.width()) / 2),
                        rect.y() + qRound((rect.height() - size.height()) / 2)),
                size};
    }

    QPixmap coloured(QSize size, const QRectF& place, double ratio, QColor colour) const {
        QPixmap pixmap(size * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer_->render(&painter, place);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(QRect(QPoint(), size), colour);
        return pixmap;
    }

    std::shared_ptr<QSvgRenderer> renderer_;
    QSizeF imageSize_;
    double length_;
    QColor colour_;
    QColor outline_;
};

} // namespace

QIcon statusIcon(const QString& imageName, QSizeF imageSize, double length, QColor colour,
                 QColor outline) {
    return QIcon(new StatusIconEngine(imageName, imageSize, length, colour, outline));
}

} // namespace panewright
