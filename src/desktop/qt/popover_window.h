#pragma once

#include "desktop/qt/key_events.h"
#include "desktop/shared/native_key_codes.h"
#include "desktop/shared/own_windows.h"
#include "platform/key_event.h"
#include "ui/popover_placement.h"

#include <QDialog>
#include <QPainterPath>

#include <functional>

namespace panewright {

/// A popover as a window without a frame, always light, with an arrow at one of its edges. It
/// takes the keyboard, lets hot keys through and stays open on a click outside.
class PopoverWindow : public QDialog, public Popover {
    Q_OBJECT

public:
    struct Handlers {
        /// Sees each key before the focused control; true keeps the key from it.
        std::function<bool(const KeyEvent&)> keyDown;
        /// The user wants it closed, which only the handler does.
        std::function<void()> closeRequested;
    };

    PopoverWindow(const NativeKeyCodes& keyCodes, OwnWindows& ownWindows, Handlers handlers);

    bool isShown() const override { return isVisible(); }
    void show(const PopoverAnchor& anchor) override;
    void makeKeyAndOrderFront() override;
    void close() override { hide(); }

    /// Fits the window to what it shows now.
    void contentChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void reject() override { handlers_.closeRequested(); }
    void closeEvent(QCloseEvent* event) override;

private:
    void place();
    void setArrow(AnchorSide side, int position);
    void cutOut();
    QPainterPath outline() const;

    const NativeKeyCodes& keyCodes_;
    OwnWindows& ownWindows_;
    Handlers handlers_;
    KeyRepeats repeats_;
    PopoverAnchor anchor_;
    QPoint place_;
    /// The window manager may still have to be told once more.
    bool mayBeMisplaced_ = false;
    AnchorSide side_ = AnchorSide::kBelow;
    /// The tip along its edge.
    int arrow_ = 0;
};

} // namespace panewright
