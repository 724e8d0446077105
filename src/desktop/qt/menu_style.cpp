#include "desktop/qt/menu_style.h"

#include "desktop/qt/menu_row.h"
#include "desktop/qt/qt_image.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace panewright {
namespace {

// In the toolkit's units.
constexpr int kLongestTitle = 400;
constexpr int kMargin = 10;      // at the left and right of a row
constexpr int kGap = 8;          // between picture and title
constexpr int kShortcutGap = 28; // between title and shortcut
constexpr int kTextPadding = 4;  // above and below
constexpr int kPicturePadding = 3;
constexpr int kArrowSize = 10;
constexpr double kMarkWidth = 9;
constexpr double kMarkStroke = 1.8;
constexpr double kSeparatorShade = 0.2;
constexpr double kDisabledShade = 0.55;

/// Null for what is no row of a MenuPopup.
const MenuRow* rowOf(const QStyleOptionMenuItem* option) {
    return option ? dynamic_cast<const MenuRow*>(option->styleObject) : nullptr;
}

/// What cannot be chosen says something all the same: themes make it too faint to read.
QColor textColour(const QStyleOptionMenuItem& option) {
    const auto& palette = option.palette;
    const auto text = palette.color(QPalette::Active, QPalette::Text);
    if (!(option.state & QStyle::State_Enabled)) {
        return between(palette.color(QPalette::Active, QPalette::Base), text, kDisabledShade);
    }
    return option.state & QStyle::State_Selected
               ? palette.color(QPalette::Active, QPalette::HighlightedText)
               : text;
}

/// The style's own is as dark as a dark ground.
void drawSeparator(const QStyleOptionMenuItem& option, QPainter& painter) {
    const auto& palette = option.palette;
    const auto middle = option.rect.center().y();
    painter.fillRect(
        QRect(option.rect.left() + kMargin / 2, middle, option.rect.width() - kMargin, 1),
        between(palette.color(QPalette::Base), palette.color(QPalette::Text), kSeparatorShade));
}

/// The style's own has the colour of a selected row's text, in each row: white on white.
void drawMark(const QStyleOptionMenuItem& option, const QRect& column, QPainter& painter) {
    const QPointF middle(column.right() + 1 - kMarkWidth / 2, QRectF(column).center().y());
    const QPolygonF mark{middle + QPointF(-kMarkWidth / 2, 0), middle + QPointF(-1, 3.5),
                         middle + QPointF(kMarkWidth / 2, -4)};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(textColour(option), kMarkStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(mark);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// The image's own size, at the right end of the column.
QRectF pictureRect(const Size& size, const QRect& column) {
    return {column.right() + 1 - size.width,
            column.top() + std::floor((column.height() - size.height) / 2), size.width,
            size.height};
}

} // namespace

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
    if (hint == SH_Menu_Scrollable) {
        return 1; // or long menus would break into columns
    }
    return VisibleBoxes::styleHint(hint, option, widget, returnData);
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const auto* row = type == CT_MenuItem ? rowOf(item) : nullptr;
    if (!row || row->isSeparator()) {
        return VisibleBoxes::sizeFromContents(type, option, size, widget);
    }
    const auto& metrics = item->fontMetrics;
    // What the menu has measured is the spoken text, which most often is the title.
    const int title = row->isTitleSpoken() ? size.width() : metrics.horizontalAdvance(row->title());
    int width = 2 * kMargin + item->maxIconWidth + kGap + std::min(title, kLongestTitle);
    if (!row->shortcutText().isEmpty()) {
        width += kShortcutGap + metrics.horizontalAdvance(row->shortcutText());
    }
    if (row->item()->submenu) {
        width += kShortcutGap + kArrowSize;
    }
    const auto* image = qtImageOf(row->item()->image);
    const int pictureHeight =
        image ? static_cast<int>(std::ceil(image->size().height)) + 2 * kPicturePadding : 0;
    return {width, std::max(metrics.height() + 2 * kTextPadding, pictureHeight)};
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const auto* row = element == CE_MenuItem ? rowOf(item) : nullptr;
    if (!row) {
        VisibleBoxes::drawControl(element, option, painter, widget);
        return;
    }
    if (row->isSeparator()) {
        drawSeparator(*item, *painter);
        return;
    }
    painter->save();
    painter->setFont(item->font);
    if ((item->state & State_Selected) && (item->state & State_Enabled)) {
        painter->fillRect(item->rect, item->palette.brush(QPalette::Active, QPalette::Highlight));
    }
    auto rest = item->rect.adjusted(kMargin, 0, -kMargin, 0);
    const QRect column(rest.topLeft(), QSize(item->maxIconWidth, rest.height()));
    if (const auto* image = qtImageOf(row->item()->image)) {
        image->paint()(*painter, pictureRect(image->size(), column));
    } else if (row->isChecked()) {
        drawMark(*item, column, *painter);
    }
    rest.setLeft(column.right() + 1 + kGap);
    painter->setPen(textColour(*item));
    if (row->item()->submenu) {
        drawArrow(*item, *painter, widget);
        rest.setRight(rest.right() - kArrowSize - kGap);
    } else if (!row->shortcutText().isEmpty()) {
        painter->drawText(rest, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                          row->shortcutText());
        rest.setRight(rest.right() - item->fontMetrics.horizontalAdvance(row->shortcutText()) -
                      kGap);
    }
    painter->drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      item->fontMetrics.elidedText(row->title(), Qt::ElideRight, rest.width()));
    painter->restore();
}

void MenuStyle::drawArrow(const QStyleOptionMenuItem& option, QPainter& painter,
                          const QWidget* widget) const {
    auto arrow = option;
    arrow.palette.setColor(QPalette::ButtonText, textColour(option));
    arrow.palette.setColor(QPalette::Text, textColour(option));
    arrow.rect = {option.rect.right() - kMargin - kArrowSize,
                  option.rect.center().y() - kArrowSize / 2, kArrowSize, kArrowSize};
    drawPrimitive(PE_IndicatorArrowRight, &arrow, &painter, widget);
}

} // namespace panewright
