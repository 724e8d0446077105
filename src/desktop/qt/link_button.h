#pragma once

#include "desktop/qt/accessible_control.h"

#include <QAbstractButton>

namespace panewright {

/// A button that looks like a link. Return presses it too.
class LinkButton : public QAbstractButton, public AccessibleControl {
    Q_OBJECT

public:
    explicit LinkButton(const QString& text);

    QSize sizeHint() const override;

    QAccessible::Role accessibleRole() const override { return QAccessible::Link; }
    QList<AccessibleAction> accessibleActions() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace panewright
