#include "desktop/qt/save_shortcut_widget.h"

#include "desktop/qt/accessible_control.h"
#include "desktop/qt/localized.h"
#include "desktop/qt/qt_image.h"
#include "desktop/qt/shortcut_remark_label.h"
#include "ui/composite_image.h"
#include "ui/save_shortcut_view_controller.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace panewright {
namespace {

/// In Qt's units, as the program's are.
constexpr QSize kImageSize(static_cast<int>(kAppIconSize.width),
                           static_cast<int>(kAppIconSize.height));

/// A radio button's title: a long name is cut in its middle, and its first letter chooses it.
QString titleThatFits(const QString& title, const QRadioButton& button) {
    auto shown = button.fontMetrics().elidedText(title, Qt::ElideMiddle, kPopoverFieldWidth);
    return '&' + shown.replace('&', "&&");
}

/// A group that only screen readers tell of.
QWidget* grouped(const QList<QWidget*>& members, int spacing, const QString& name) {
    auto* group = new QWidget;
    setAccessibleRole(*group, QAccessible::Grouping);
    group->setAccessibleName(name);
    auto* layout = new QVBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    for (auto* member : members) {
        layout->addWidget(member);
    }
    return group;
}

void setImage(QLabel& label, const ImagePtr& image) {
    label.setPixmap(iconOf(image).pixmap(kImageSize, label.devicePixelRatioF()));
    label.setVisible(image != nullptr);
}

} // namespace

SaveShortcutWidget::SaveShortcutWidget(SaveShortcutViewController& controller,
                                       const NativeKeyCodes& keyCodes, OwnWindows& ownWindows)
    : ShortcutPopoverWidget(controller, keyCodes, ownWindows, localized("Save Window State")) {
    addPictures();
    addContext(controller);
    parts().addButton(localized("&Cancel"), [&controller] { controller.cancel(); });
    save_ = &parts().addButton(localized("&Save"), [&controller] { controller.save(); });
    save_->setDefault(true);
}

void SaveShortcutWidget::addPictures() {
    applicationImage_ = new QLabel;
    windowStateImage_ = new QLabel;
    windowStateImage_->hide();
    applicationImage_->setAccessibleName(localized("Icon of the program"));
    windowStateImage_->setAccessibleName(localized("Picture of the window on its display"));
    parts().header().insertWidget(0, applicationImage_);
    parts().header().addWidget(windowStateImage_);
}

void SaveShortcutWidget::addContext(SaveShortcutViewController& controller) {
    forAppOnly_ = new QRadioButton;
    forAllApplications_ = new QRadioButton(localized("Active for &all applications"));
    prefersDisplay_ = new QCheckBox(localized("&Prefer the display it is on now"));
    prefersDisplay_->setToolTip(
        localized("Also with other displays connected, the window goes to one of this size."));
    auto& form = parts().form();
    form.addRow(QString(), grouped({forAppOnly_, forAllApplications_}, form.verticalSpacing(),
                                   localized("Where the shortcut is active")));
    form.addRow(QString(), prefersDisplay_);
    refusal_ = makeShortcutRemarkLabel();
    refusal_->setWordWrap(true);
    form.addRow(QString(), refusal_);
    // Not clicked(), which is silent about what a screen reader toggles.
    QObject::connect(forAppOnly_, &QRadioButton::toggled, [&controller](bool isOn) {
        isOn ? controller.onActiveForAppOnly() : controller.onActiveForAll();
    });
}

void SaveShortcutWidget::setApplicationImage(const ImagePtr& image) {
    setImage(*applicationImage_, image);
}

void SaveShortcutWidget::setWindowStateImage(const ImagePtr& image) {
    setImage(*windowStateImage_, image);
}

bool SaveShortcutWidget::forAppOnly() const {
    return forAppOnly_->isChecked();
}

/// The two are exclusive: switching one off switches the other on, which is what is meant.
void SaveShortcutWidget::setForAppOnly(bool on) {
    const QSignalBlocker notByUser(forAppOnly_);
    (on ? forAppOnly_ : forAllApplications_)->setChecked(true);
}

void SaveShortcutWidget::setForAppOnlyEnabled(bool enabled) {
    forAppOnly_->setEnabled(enabled);
}

void SaveShortcutWidget::setForAppOnlyTitle(const std::string& title) {
    const auto text = QString::fromStdString(title);
    forAppOnly_->setText(titleThatFits(text, *forAppOnly_));
    forAppOnly_->setAccessibleName(text);
}

void SaveShortcutWidget::setForAppOnlyToolTip(const std::string& text) {
    forAppOnly_->setToolTip(QString::fromStdString(text));
}

bool SaveShortcutWidget::forAllApplications() const {
    return forAllApplications_->isChecked();
}

void SaveShortcutWidget::setForAllApplications(bool on) {
    setForAppOnly(!on);
}

void SaveShortcutWidget::setForAllApplicationsToolTip(const std::string& text) {
    forAllApplications_->setToolTip(QString::fromStdString(text));
}

bool SaveShortcutWidget::prefersDisplay() const {
    return prefersDisplay_->isChecked();
}

void SaveShortcutWidget::setPrefersDisplay(bool on) {
    prefersDisplay_->setChecked(on);
}

void SaveShortcutWidget::setSavingRefusal(const std::string& text) {
    refusal_->setText(QString::fromStdString(text));
    refusal_->setVisible(!text.empty());
    save_->setEnabled(text.empty());
    save_->setToolTip(refusal_->text()); // which screen readers say with the button
    parts().window().contentChanged();
}

} // namespace panewright
