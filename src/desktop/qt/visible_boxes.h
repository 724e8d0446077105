#pragma once

#include <QColor>
#include <QProxyStyle>

namespace panewright {

/// Between the two colours: 0 is the first, 1 the second.
QColor between(const QColor& first, const QColor& second, double share);

/// The application's style with an outline around check boxes, and around what has the focus, on
/// dark grounds, where the style's own are as dark as the ground and cannot be seen.
class VisibleBoxes : public QProxyStyle {
    Q_OBJECT

public:
    /// Goes with the parent.
    explicit VisibleBoxes(QObject* parent) { setParent(parent); }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace panewright
