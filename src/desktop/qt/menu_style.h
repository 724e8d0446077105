#pragma once

#include "desktop/qt/visible_boxes.h"

class QStyleOptionMenuItem;

namespace panewright {

/// Draws the rows of a MenuPopup, and leaves the rest of it to the application's style: a column of
/// pictures in their own sizes, titles that are cut short where they are too long, shortcuts at the
/// right. A row is as high as its picture or its text asks for.
class MenuStyle : public VisibleBoxes {
    Q_OBJECT

public:
    /// Goes with the parent.
    explicit MenuStyle(QObject* parent) : VisibleBoxes(parent) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

private:
    void drawArrow(const QStyleOptionMenuItem& option, QPainter& painter,
                   const QWidget* widget) const;
};

} // namespace panewright
