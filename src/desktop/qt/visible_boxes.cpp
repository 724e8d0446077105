#include "desktop/qt/visible_boxes.h"

#include <QPainter>
#include <QStyleOption>

namespace panewright {
namespace {

constexpr double kOutline = 0.5;

} // namespace

QColor between(const QColor& first, const QColor& second, double share) {
    const auto mixed = [share](float a, float b) { return float(a + (b - a) * share); };
    return QColor::fromRgbF(mixed(first.redF(), second.redF()),
                            mixed(first.greenF(), second.greenF()),
                            mixed(first.blueF(), second.blueF()));
}

void VisibleBoxes::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto ground = option->palette.color(QPalette::Window);
    const auto text = option->palette.color(QPalette::WindowText);
    if (ground.lightness() >= text.lightness()) {
        return;
    }
    const auto outline = [&](const QColor& colour) {
        painter->setPen(colour);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    };
    if (element == PE_IndicatorCheckBox) {
        outline(between(ground, text, kOutline));
    } else if (element == PE_FrameFocusRect) {
        outline(option->palette.color(QPalette::Highlight));
    }
}

} // namespace panewright
