#include "desktop/qt/settings_window.h"

#include "desktop/qt/program_icon.h"
#include "desktop/qt/shortcut_recorder_widget.h"
#include "desktop/qt/shortcut_remark_label.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace panewright {
namespace {

// In Qt's units.
constexpr int kMargin = 18;
constexpr int kSpacing = 12;

} // namespace

SettingsWindow::SettingsWindow(Settings& settings, const NativeKeyCodes& keyCodes)
    : settings_(settings) {
    setWindowTitle(tr("Settings"));
    setWindowIcon(programIcon());
    setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    addShortcut(*layout, keyCodes);
    addOptions(*layout);
    addFooter(*layout);
}

void SettingsWindow::addShortcut(QVBoxLayout& layout, const NativeKeyCodes& keyCodes) {
    auto* form = new QFormLayout;
    auto* recorder = new ShortcutRecorderWidget(settings_.shortcutRecorder(), keyCodes);
    recorder->setAccessibleName(tr("Shortcut that moves the window to the next display"));
    form->addRow(tr("&Move window to next display:"), recorder);
    remark_ = makeShortcutRemarkLabel();
    form->addRow(QString(), remark_);
    layout.addLayout(form);
}

void SettingsWindow::addOptions(QVBoxLayout& layout) {
    allowMoveWindow_ =
        new QCheckBox(tr("A shortcut &pressed again moves the window to the next display"));
    startupItem_ = new QCheckBox(tr("Start at &login"));
    auto* restore = new QPushButton(tr("&Restore Built-in States"));
    restore->setAutoDefault(false); // Return presses nothing
    restore->setToolTip(tr("Puts the four built-in states back as they were at first. "
                           "Your own states stay."));
    save_ = new QPushButton(tr("&Save Current Window…"));
    save_->setAutoDefault(false);
    connect(save_, &QPushButton::clicked, this, [this] { settings_.saveWindowPosition(); });
    connect(allowMoveWindow_, &QCheckBox::clicked, this,
            [this] { settings_.allowStateShortuctMoveWindow(); });
    connect(startupItem_, &QCheckBox::clicked, this, [this] { settings_.startupItem(); });
    connect(restore, &QPushButton::clicked, this,
            [this] { settings_.restoreDefaultWindowStates(); });
    layout.addWidget(save_, 0, Qt::AlignLeft);
    layout.addWidget(allowMoveWindow_);
    layout.addWidget(startupItem_);
    layout.addWidget(restore, 0, Qt::AlignLeft);
}

void SettingsWindow::addFooter(QVBoxLayout& layout) {
    auto* footer = new QHBoxLayout;
    const auto addLink = [&](const QString& text, void (Settings::*action)()) {
        auto* link = new QLabel("<a href=\"#\">" + text + "</a>");
        link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        connect(link, &QLabel::linkActivated, this, [this, action] { (settings_.*action)(); });
        footer->addWidget(link);
    };
    version_ = new QLabel;
    version_->setEnabled(false);
    footer->setSpacing(kSpacing);
    footer->addWidget(version_);
    footer->addStretch();
    addLink(tr("Website"), &Settings::website);
    addLink(tr("FAQ"), &Settings::faq);
    addLink(tr("Feedback"), &Settings::feedback);
    layout.addSpacing(kSpacing);
    layout.addLayout(footer);
}

void SettingsWindow::makeKeyAndOrderFront() {
    raise();
    activateWindow();
}

bool SettingsWindow::startupItem() const {
    return startupItem_->isChecked();
}

void SettingsWindow::setStartupItem(bool on) {
    startupItem_->setChecked(on);
}

bool SettingsWindow::allowMoveWindow() const {
    return allowMoveWindow_->isChecked();
}

void SettingsWindow::setAllowMoveWindow(bool on) {
    allowMoveWindow_->setChecked(on);
}

void SettingsWindow::setVersion(const std::string& text) {
    version_->setText(QString::fromStdString(text));
}

void SettingsWindow::setSavingShown(bool isShown) {
    save_->setVisible(isShown);
}

void SettingsWindow::setShortcutRemark(const std::string& text) {
    showRemark(*remark_, text);
}

} // namespace panewright
