#include "desktop/qt/link_button.h"

#include "desktop/qt/localized.h"
#include "desktop/qt/visible_boxes.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace panewright {
namespace {

/// Room for the mark of the focus at each side, in Qt's units.
constexpr int kMargin = 3;

} // namespace

LinkButton::LinkButton(const QString& text) {
    setText(text);
    setAccessibleName(text);
    setStyle(new VisibleBoxes(this));
    setCursor(Qt::PointingHandCursor);
    auto underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
}

QSize LinkButton::sizeHint() const {
    return fontMetrics().size(Qt::TextSingleLine, text()) + QSize(2 * kMargin, 0);
}

QList<AccessibleAction> LinkButton::accessibleActions() {
    return {{QAccessibleActionInterface::pressAction(), localized("Opens the page"), "Return",
             [this] { click(); }}};
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void LinkButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
    style()->drawItemText(&painter, rect(), Qt::AlignCenter, palette(), isEnabled(), text(),
                          QPalette::Link);
}

} // namespace panewright
