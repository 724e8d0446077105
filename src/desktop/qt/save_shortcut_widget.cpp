#include "desktop/qt/save_shortcut_widget.h"

#include "desktop/qt/program_icon.h"
#include "desktop/qt/qt_image.h"
#include "desktop/qt/shortcut_recorder_widget.h"
#include "desktop/qt/shortcut_remark_label.h"
#include "ui/save_shortcut_view_controller.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace panewright {
namespace {

// In Qt's units.
constexpr int kImageSize = 16;
constexpr int kFieldWidth = 240;
constexpr int kSectionSpacing = 12;

/// A radio button's title: a long name is cut in its middle, and its first letter chooses it.
QString titleThatFits(const QString& title, const QRadioButton& button) {
    auto shown = button.fontMetrics().elidedText(title, Qt::ElideMiddle, kFieldWidth);
    return '&' + shown.replace('&', "&&");
}

void setImage(QLabel& label, const ImagePtr& image) {
    label.setPixmap(iconOf(image).pixmap(QSize(kImageSize, kImageSize), label.devicePixelRatioF()));
    label.setVisible(image != nullptr);
}

} // namespace

SaveShortcutWidget::SaveShortcutWidget(SaveShortcutViewController& controller,
                                       const NativeKeyCodes& keyCodes, OwnWindows& ownWindows)
    : controller_(controller),
      window_(keyCodes, ownWindows,
              {[&controller](const KeyEvent& event) { return controller.keyDown(event); },
               [&controller] { controller.closeRequested(); }}) {
    window_.setWindowTitle(tr("Save Window State"));
    window_.setWindowIcon(programIcon());
    window_.setAccessibleName(window_.windowTitle());
    auto* layout = new QVBoxLayout(&window_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSectionSpacing);
    addHeader(*layout);
    addFields(*layout, keyCodes);
    addButtons(*layout);
}

void SaveShortcutWidget::addHeader(QVBoxLayout& layout) {
    auto* header = new QHBoxLayout;
    applicationImage_ = new QLabel;
    auto* title = new QLabel(window_.windowTitle());
    auto font = title->font();
    font.setBold(true);
    title->setFont(font);
    windowStateImage_ = new QLabel;
    windowStateImage_->hide();
    header->addWidget(applicationImage_);
    header->addWidget(title);
    header->addStretch();
    header->addWidget(windowStateImage_);
    layout.addLayout(header);
}

void SaveShortcutWidget::addFields(QVBoxLayout& layout, const NativeKeyCodes& keyCodes) {
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);

    name_ = new QLineEdit;
    name_->setMinimumWidth(kFieldWidth);
    name_->setPlaceholderText(tr("Left half, for example"));
    name_->setAccessibleName(tr("Name of the window state"));
    form->addRow(tr("&Name:"), name_);

    auto* recorder = new ShortcutRecorderWidget(controller_.shortcutRecorder(), keyCodes);
    recorder->setAccessibleName(tr("Shortcut"));
    form->addRow(tr("Shor&tcut:"), recorder);
    remark_ = makeShortcutRemarkLabel();
    form->addRow(QString(), remark_);

    forAppOnly_ = new QRadioButton;
    forAllApplications_ = new QRadioButton(tr("Active for &all applications"));
    prefersDisplay_ = new QCheckBox(tr("&Prefer the display it is on now"));
    prefersDisplay_->setToolTip(
        tr("Also with other displays connected, the window goes to one of this size."));
    form->addRow(QString(), forAppOnly_);
    form->addRow(QString(), forAllApplications_);
    form->addRow(QString(), prefersDisplay_);
    connect(forAppOnly_, &QRadioButton::clicked, this,
            [this] { controller_.onActiveForAppOnly(); });
    connect(forAllApplications_, &QRadioButton::clicked, this,
            [this] { controller_.onActiveForAll(); });
    layout.addLayout(form);
}

void SaveShortcutWidget::addButtons(QVBoxLayout& layout) {
    auto* buttons = new QHBoxLayout;
    auto* cancel = new QPushButton(tr("&Cancel"));
    auto* save = new QPushButton(tr("&Save"));
    cancel->setAutoDefault(false);
    save->setDefault(true);
    connect(cancel, &QPushButton::clicked, this, [this] { controller_.cancel(); });
    connect(save, &QPushButton::clicked, this, [this] { controller_.save(); });
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(save);
    layout.addLayout(buttons);
}

void SaveShortcutWidget::setApplicationImage(const ImagePtr& image) {
    setImage(*applicationImage_, image);
}

void SaveShortcutWidget::setWindowStateImage(const ImagePtr& image) {
    setImage(*windowStateImage_, image);
}

std::string SaveShortcutWidget::windowStateName() const {
    return name_->text().toStdString();
}

void SaveShortcutWidget::setWindowStateName(const std::string& name) {
    name_->setText(QString::fromStdString(name));
}

void SaveShortcutWidget::focusWindowStateName() {
    name_->setFocus(Qt::OtherFocusReason);
}

bool SaveShortcutWidget::forAppOnly() const {
    return forAppOnly_->isChecked();
}

/// The two are exclusive: switching one off switches the other on, which is what is meant.
void SaveShortcutWidget::setForAppOnly(bool on) {
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

void SaveShortcutWidget::setShortcutRemark(const std::string& text) {
    showRemark(*remark_, text);
    window_.contentChanged();
}

} // namespace panewright
