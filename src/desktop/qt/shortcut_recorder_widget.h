#pragma once

#include "desktop/qt/accessible_control.h"
#include "desktop/qt/key_events.h"
#include "desktop/shared/native_key_codes.h"
#include "shortcuts/qf_shortcut_recorder.h"

#include <QWidget>

namespace panewright {

/// Shows a recorder. While that records, the widget has the whole keyboard, so that keys arrive
/// which this program, another one or the window manager has bound.
///
/// To a screen reader it is a button, whose description is the shortcut in words.
class ShortcutRecorderWidget : public QWidget,
                               public QFShortcutRecorderView,
                               public AccessibleControl {
    Q_OBJECT

public:
    /// Both must outlive the widget.
    ShortcutRecorderWidget(QFShortcutRecorder& recorder, const NativeKeyCodes& keyCodes,
                           QWidget* parent = nullptr);
    ~ShortcutRecorderWidget() override;

    bool isFirstResponder() const override { return hasFocus(); }
    void makeFirstResponder() override { setFocus(Qt::MouseFocusReason); }
    void setNeedsDisplay() override;

    /// What is to be said with the shortcut; empty for nothing.
    void setRemark(const QString& remark);

    QAccessible::Role accessibleRole() const override { return QAccessible::Button; }
    QList<AccessibleAction> accessibleActions() override;
    bool isAccessiblyPressed() const override { return recorder_.isRecording(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool handleKey(QKeyEvent& event);
    void holdKeyboard(bool hold);
    void clickAt(Point place);
    void clear();
    void describe();
    Size viewSize() const { return {double(width()), double(height())}; }
    void drawBackground(QPainter& painter) const;
    void drawLabel(QPainter& painter) const;
    void drawButtons(QPainter& painter) const;

    QFShortcutRecorder& recorder_;
    const NativeKeyCodes& keyCodes_;
    KeyRepeats repeats_;
    QString remark_;
    bool holdsKeyboard_ = false;
};

} // namespace panewright
