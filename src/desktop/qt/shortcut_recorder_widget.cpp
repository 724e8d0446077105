#include "desktop/qt/shortcut_recorder_widget.h"

#include "desktop/qt/localized.h"
#include "desktop/qt/localized_shortcut.h"
#include "desktop/qt/qt_colour.h"

#include <QPainter>
#include <QPainterPath>

namespace panewright {
namespace {

constexpr double kCornerRadius = 4;
constexpr int kHeight = 24;
constexpr Colour kText = grey(0.1);
constexpr Colour kFocusRing{0.23, 0.51, 0.96};

/// A disc with a cross cut out of it, as large as the button.
QPainterPath clearImage() {
    QPainterPath disc;
    disc.addEllipse(0, 0, QFShortcutRecorder::kButtonSize, QFShortcutRecorder::kButtonSize);
    QPainterPath cross;
    cross.addRoundedRect(-4, -0.8, 8, 1.6, 0.8, 0.8);
    cross = cross.united(QTransform().rotate(90).map(cross));
    return disc.subtracted(QTransform().translate(6, 6).rotate(45).map(cross));
}

/// A disc with an arrow that turns back cut out of it, as large as the button.
QPainterPath snapBackImage() {
    QPainterPath disc;
    disc.addEllipse(0, 0, QFShortcutRecorder::kButtonSize, QFShortcutRecorder::kButtonSize);
    QPainterPath line;
    line.moveTo(4, 4.6);
    line.lineTo(6.8, 4.6);
    line.arcTo(4.9, 4.6, 3.8, 3.8, 90, -180);
    line.lineTo(5, 8.4);
    QPainterPathStroker pen;
    pen.setWidth(1.4);
    pen.setCapStyle(Qt::RoundCap);
    QPainterPath head;
    head.moveTo(2.4, 4.6);
    head.lineTo(5.2, 2.5);
    head.lineTo(5.2, 6.7);
    head.closeSubpath();
    return disc.subtracted(pen.createStroke(line).united(head));
}

void drawButton(QPainter& painter, const Rect& place, const QPainterPath& image, QColor tint,
                const std::optional<Colour>& adjustment) {
    painter.save();
    painter.translate(place.x, place.y);
    painter.fillPath(image, tint);
    if (adjustment) {
        painter.fillPath(image, toQt(*adjustment));
    }
    painter.restore();
}

Point middleOf(const Rect& rect) {
    return {rect.x + rect.width / 2, rect.y + rect.height / 2};
}

} // namespace

ShortcutRecorderWidget::ShortcutRecorderWidget(QFShortcutRecorder& recorder,
                                               const NativeKeyCodes& keyCodes, QWidget* parent)
    : QWidget(parent), recorder_(recorder), keyCodes_(keyCodes) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // Keys must come as they are, not composed: a dead key is a key like others.
    setAttribute(Qt::WA_InputMethodEnabled, false);
    recorder_.setView(this);
    describe();
}

ShortcutRecorderWidget::~ShortcutRecorderWidget() {
    holdKeyboard(false);
    recorder_.setView(nullptr);
}

QSize ShortcutRecorderWidget::sizeHint() const {
    return {fontMetrics().horizontalAdvance(QString::fromStdString(recorder_.defaultLabel())) + 60,
            qMax(kHeight, fontMetrics().height() + 8)};
}

void ShortcutRecorderWidget::setNeedsDisplay() {
    holdKeyboard(recorder_.isRecording());
    describe();
    update();
}

void ShortcutRecorderWidget::setRemark(const QString& remark) {
    remark_ = remark;
    remark_.replace('\n', ' ');
    describe();
}

void ShortcutRecorderWidget::describe() {
    const auto words = localizedShortcut(recorder_.shortcutInWords());
    // For those who do not know the symbols.
    setToolTip(words == QString::fromStdString(recorder_.shownLabel()) ? QString() : words);
    auto description = recorder_.isRecording()
                           ? localized("Recording: press the keys, or Escape to stop")
                       : words.isEmpty() ? localized("No shortcut")
                                         : words;
    description += remark_.isEmpty() ? QString() : ". " + remark_;
    if (description != accessibleDescription()) { // which would be said again
        setAccessibleDescription(description);
    }
}

/// The keys are those of QFShortcutRecorder::performKeyEquivalent().
QList<AccessibleAction> ShortcutRecorderWidget::accessibleActions() {
    const auto press = QAccessibleActionInterface::pressAction();
    QList<AccessibleAction> actions;
    if (const auto stop = recorder_.snapBackButton(viewSize())) {
        actions += {press, localized("Stops recording"), "Escape",
                    [this, stop] { clickAt(middleOf(*stop)); }};
    } else {
        actions += {press, localized("Records a shortcut"), "Space", [this] {
                        clickAt({viewSize().width / 2, viewSize().height / 2});
                    }};
        if (recorder_.keyCode() != QFShortcutRecorder::kNoKeyCode) {
            actions +=
                {"Clear", localized("Clears the shortcut"), "Backspace", [this] { clear(); }};
        }
    }
    return actions;
}

void ShortcutRecorderWidget::clickAt(Point place) {
    window()->activateWindow();
    recorder_.mouseDown(place, viewSize());
    recorder_.mouseUp(place, viewSize());
}

void ShortcutRecorderWidget::clear() {
    recorder_.clearKeyboardShortcut();
    setNeedsDisplay();
}

void ShortcutRecorderWidget::holdKeyboard(bool hold) {
    if (hold == holdsKeyboard_) {
        return;
    }
    holdsKeyboard_ = hold;
    if (hold) {
        grabKeyboard();
        // What was held before the recording counts too.
        recorder_.flagsChanged(heldModifierFlags());
    } else {
        releaseKeyboard();
    }
}

bool ShortcutRecorderWidget::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride: // else Alt with a letter would press one of the buttons
        if (recorder_.isRecording()) {
            event->accept();
            return true;
        }
        break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: // here, before Tab moves the focus
        if (handleKey(static_cast<QKeyEvent&>(*event))) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool ShortcutRecorderWidget::handleKey(QKeyEvent& event) {
    const bool wasRecording = recorder_.isRecording();
    const bool isRepeat = repeats_.isRepeat(event);
    if (isModifierKey(event, keyCodes_)) {
        // What the event says is wrong for Alt with Shift held, which is Meta to the toolkit, and
        // while a screen reader listens, which the toolkit lets see a copy of each event first.
        recorder_.flagsChanged(heldModifierFlags());
        return wasRecording;
    }
    if (event.type() == QEvent::KeyRelease || isRepeat) {
        return wasRecording;
    }
    const auto key = keyEventOf(event, keyCodes_);
    if (!key) {
        recorder_.keyWithoutCode();
        return wasRecording;
    }
    recorder_.flagsChanged(key->modifierFlags);
    return recorder_.keyDown(*key) || wasRecording;
}

void ShortcutRecorderWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        recorder_.mouseDown({event->position().x(), event->position().y()}, viewSize());
    }
}

void ShortcutRecorderWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        recorder_.mouseUp({event->position().x(), event->position().y()}, viewSize());
    }
}

void ShortcutRecorderWidget::focusInEvent(QFocusEvent* event) {
    recorder_.becomeFirstResponder();
    QWidget::focusInEvent(event);
}

void ShortcutRecorderWidget::focusOutEvent(QFocusEvent* event) {
    recorder_.resignFirstResponder();
    QWidget::focusOutEvent(event);
}

void ShortcutRecorderWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBackground(painter);
    drawLabel(painter);
    drawButtons(painter);
}

void ShortcutRecorderWidget::drawBackground(QPainter& painter) const {
    const double pixel = 1 / devicePixelRatioF();
    const QRectF bounds = rect();
    QPainterPath outline;
    outline.addRoundedRect(bounds, kCornerRadius, kCornerRadius);
    painter.fillPath(outline, toQt(grey(0.784)));
    QPainterPath inside;
    inside.addRoundedRect(bounds.adjusted(pixel, pixel, -pixel, -pixel), kCornerRadius,
                          kCornerRadius);
    painter.fillPath(inside, Qt::white);

    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(QRectF(3 * pixel, pixel, bounds.width() - 6 * pixel, pixel),
                     toQt(grey(0.716)));
    painter.fillRect(QRectF(4, 0, bounds.width() - 8, pixel), toQt(grey(0.674)));
    painter.setRenderHint(QPainter::Antialiasing);

    if (hasFocus()) {
        painter.setPen(QPen(toQt(kFocusRing), 2));
        painter.drawRoundedRect(bounds.adjusted(1, 1, -1, -2), kCornerRadius, kCornerRadius);
    }
}

void ShortcutRecorderWidget::drawLabel(QPainter& painter) const {
    painter.setPen(toQt(recorder_.shownAttributes().foreground.value_or(kText)));
    painter.drawText(rect().adjusted(0, 0, 0, -3), Qt::AlignCenter,
                     QString::fromStdString(recorder_.shownLabel()));
}

void ShortcutRecorderWidget::drawButtons(QPainter& painter) const {
    if (!recorder_.showsButtons()) {
        return;
    }
    const auto adjustmentIf = [this](bool pressed) {
        return pressed ? recorder_.mouseDownTintAdjustment() : std::nullopt;
    };
    if (const auto place = recorder_.clearButton(viewSize())) {
        drawButton(painter, *place, clearImage(), toQt(recorder_.clearButtonTint()),
                   adjustmentIf(recorder_.mouseDownInClear()));
    }
    if (const auto place = recorder_.snapBackButton(viewSize())) {
        drawButton(painter, *place, snapBackImage(), toQt(recorder_.snapBackButtonTint()),
                   adjustmentIf(recorder_.mouseDownInSnapBack()));
    }
}

} // namespace panewright
