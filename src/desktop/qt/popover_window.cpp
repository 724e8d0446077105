#include "desktop/qt/popover_window.h"

#include "desktop/qt/native_geometry.h"

#include <QCloseEvent>
#include <QLayout>
#include <QPainter>
#include <QWindow>

#include <utility>

namespace panewright {
namespace {

// In Qt's units.
constexpr int kArrowHeight = 9;
constexpr int kArrowWidth = 20;
constexpr int kCornerRadius = 7;
constexpr int kMargin = 16;
constexpr int kSideMargin = 8;
constexpr int kArrowMargin = kCornerRadius + kArrowWidth / 2 + 1;

QPalette lightPalette() {
    QPalette palette(QColor(0xf2, 0xf2, 0xf2), QColor(0xf6, 0xf6, 0xf6));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf0, 0xf0, 0xf0));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xd6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(0x8a, 0x8a, 0x8a));
    palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xff, 0xe6));
    palette.setColor(QPalette::ToolTipText, QColor(0x1a, 0x1a, 0x1a));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(0x1a, 0x1a, 0x1a));
        palette.setColor(QPalette::Disabled, role, QColor(0x9a, 0x9a, 0x9a));
    }
    return palette;
}

/// The room that the arrow takes.
QMarginsF arrowMargins(AnchorSide side) {
    const auto at = [side](AnchorSide wanted) { return side == wanted ? kArrowHeight : 0; };
    return {double(at(AnchorSide::kRightOf)), double(at(AnchorSide::kBelow)),
            double(at(AnchorSide::kLeftOf)), double(at(AnchorSide::kAbove))};
}

} // namespace

PopoverWindow::PopoverWindow(const NativeKeyCodes& keyCodes, OwnWindows& ownWindows,
                             Handlers handlers)
    : keyCodes_(keyCodes), ownWindows_(ownWindows), handlers_(std::move(handlers)) {
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setPalette(lightPalette());
    create();
    windowHandle()->installEventFilter(this);
}

void PopoverWindow::show(const PopoverAnchor& anchor) {
    anchor_ = anchor;
    mayBeMisplaced_ = true;
    place();
    if (!isVisible()) {
        ownWindows_.keepOutOfTaskBars(winId());
    }
    QDialog::show();
}

void PopoverWindow::contentChanged() {
    if (isVisible()) {
        place();
    }
}

void PopoverWindow::place() {
    auto* screen = screenAt(anchor_.rect.size() == Size{} ? anchor_.workArea : anchor_.rect);
    if (!screen) {
        return;
    }
    // The arrow takes its room before the size is known. What was hidden or shown meanwhile counts.
    const bool wasUpright = side_ == AnchorSide::kBelow || side_ == AnchorSide::kAbove;
    if (wasUpright == isBesideWorkArea(anchor_)) {
        side_ = wasUpright ? AnchorSide::kRightOf : AnchorSide::kBelow;
    }
    setArrow(side_, arrow_);
    layout()->invalidate();
    layout()->activate();
    const auto size = sizeHint();
    const auto placement =
        placePopover({fromQt(size), kArrowMargin, kSideMargin}, fromNative(anchor_, *screen));
    setArrow(placement.side, qRound(placement.arrow));
    windowHandle()->setScreen(screen);
    place_ = toQt(placement.frame.origin());
    setGeometry({place_, size});
}

/// Some managers, such as i3, move a window when it is first shown, for the frame that it does not
/// get.
void PopoverWindow::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    if (isVisible() && pos() != place_ && std::exchange(mayBeMisplaced_, false)) {
        move(place_);
    }
}

void PopoverWindow::setArrow(AnchorSide side, int position) {
    side_ = side;
    arrow_ = position;
    setContentsMargins((arrowMargins(side) + kMargin).toMargins());
    cutOut();
    update();
}

void PopoverWindow::makeKeyAndOrderFront() {
    raise();
    ownWindows_.makeKey(winId());
}

void PopoverWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    handlers_.closeRequested();
}

bool PopoverWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress;
    if (watched == windowHandle() && (isPress || event->type() == QEvent::KeyRelease)) {
        const auto& keyEvent = static_cast<QKeyEvent&>(*event);
        const bool isRepeat = repeats_.isRepeat(keyEvent);
        const auto key = keyEventOf(keyEvent, keyCodes_);
        if (isPress && !isRepeat && key && !isModifierKey(keyEvent, keyCodes_) &&
            handlers_.keyDown(*key)) {
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

QPainterPath PopoverWindow::outline() const {
    QPainterPath bubble;
    bubble.addRoundedRect(QRectF(rect()).marginsRemoved(arrowMargins(side_)), kCornerRadius,
                          kCornerRadius);
    // As if the arrow were at the top; then turned to where it is. It reaches into the body, so
    // that no line is left between the two.
    QPainterPath arrow;
    arrow.moveTo(-kArrowWidth / 2.0, kArrowHeight + 1);
    arrow.lineTo(0, 0);
    arrow.lineTo(kArrowWidth / 2.0, kArrowHeight + 1);
    arrow.closeSubpath();
    QTransform turn;
    switch (side_) {
    case AnchorSide::kBelow:
        turn.translate(arrow_, 0);
        break;
    case AnchorSide::kAbove:
        turn.translate(arrow_, height()).rotate(180);
        break;
    case AnchorSide::kRightOf:
        turn.translate(0, arrow_).rotate(-90);
        break;
    case AnchorSide::kLeftOf:
        turn.translate(width(), arrow_).rotate(90);
        break;
    }
    return bubble.united(turn.map(arrow));
}

void PopoverWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto shape = outline();
    painter.fillPath(shape, palette().window());
    // Half of the line lies outside and is not drawn.
    painter.setClipPath(shape);
    painter.setPen(QPen(QColor(0x8c, 0x8c, 0x8c), 2));
    painter.drawPath(shape);
}

void PopoverWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    cutOut();
}

/// Where nothing shows through, what lies outside the outline is cut off instead, with steps.
void PopoverWindow::cutOut() {
    if (ownWindows_.areComposited()) {
        clearMask();
    } else {
        setMask(QRegion(outline().toFillPolygon().toPolygon()));
    }
}

} // namespace panewright
