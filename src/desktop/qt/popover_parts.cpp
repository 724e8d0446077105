#include "desktop/qt/popover_parts.h"

#include "desktop/qt/accessible_control.h"
#include "desktop/qt/localized.h"
#include "desktop/qt/program_icon.h"
#include "desktop/qt/shortcut_recorder_widget.h"
#include "desktop/qt/shortcut_remark_label.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace panewright {
namespace {

// In Qt's units.
constexpr int kSectionSpacing = 12;

} // namespace

PopoverParts::PopoverParts(PopoverController& controller, const NativeKeyCodes& keyCodes,
                           OwnWindows& ownWindows, const QString& title)
    : window_(keyCodes, ownWindows,
              {[&controller](const KeyEvent& event) {
                   controller.shortcutRecorder().flagsChanged(event.modifierFlags);
                   return controller.keyDown(event);
               },
               [&controller] { controller.closeRequested(); }}) {
    window_.setWindowTitle(title);
    window_.setWindowIcon(programIcon());
    window_.setAccessibleName(title);
    layout_ = new QVBoxLayout(&window_);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(kSectionSpacing);

    header_ = new QHBoxLayout;
    auto* heading = new QLabel;
    setAccessibleRole(*heading, QAccessible::Heading);
    heading->setText(title);
    heading->setAccessibleName(title);
    auto font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    header_->addWidget(heading);
    header_->addStretch();
    layout_->addLayout(header_);

    addFields(controller, keyCodes);

    buttons_ = new QHBoxLayout;
    buttons_->addStretch();
    layout_->addLayout(buttons_);
}

void PopoverParts::addFields(PopoverController& controller, const NativeKeyCodes& keyCodes) {
    form_ = new QFormLayout;
    form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);

    name_ = new QLineEdit;
    name_->setMinimumWidth(kPopoverFieldWidth);
    name_->setPlaceholderText(localized("Left half, for example"));
    name_->setAccessibleName(localized("Name of the window state"));
    form_->addRow(localized("&Name:"), name_);

    recorder_ = new ShortcutRecorderWidget(controller.shortcutRecorder(), keyCodes);
    recorder_->setAccessibleName(localized("Shortcut"));
    form_->addRow(localized("Shor&tcut:"), recorder_);
    remark_ = makeShortcutRemarkLabel();
    form_->addRow(QString(), remark_);
    layout_->addLayout(form_);
}

QPushButton& PopoverParts::addButton(const QString& text, std::function<void()> clicked) {
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, &window_, std::move(clicked));
    buttons_->addWidget(button);
    return *button;
}

QPushButton& PopoverParts::addButtonAtLeft(const QString& text, std::function<void()> clicked) {
    auto& button = addButton(text, std::move(clicked));
    buttons_->removeWidget(&button);
    buttons_->insertWidget(0, &button);
    return button;
}

std::string PopoverParts::windowStateName() const {
    return name_->text().toStdString();
}

void PopoverParts::setWindowStateName(const std::string& name) {
    name_->setText(QString::fromStdString(name));
    // All of it, beginning with what is read first.
    const auto length = static_cast<int>(name_->text().length());
    name_->setSelection(length, -length);
}

void PopoverParts::focusWindowStateName() {
    name_->setFocus(Qt::OtherFocusReason);
}

void PopoverParts::setShortcutRemark(const std::string& text) {
    showRemark(*remark_, text);
    recorder_->setRemark(QString::fromStdString(text));
    window_.contentChanged();
}

} // namespace panewright
