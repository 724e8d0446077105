#include "desktop/qt/settings_window.h"

#include "desktop/qt/link_button.h"
#include "desktop/qt/localized.h"
#include "desktop/qt/program_icon.h"
#include "desktop/qt/shortcut_recorder_widget.h"
#include "desktop/qt/shortcut_remark_label.h"
#include "desktop/qt/visible_boxes.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace panewright {
namespace {

// In Qt's units.
constexpr int kMargin = 18;
constexpr int kSpacing = 12;

/// Text that stands back and can still be read.
QPalette mutedText(QPalette palette) {
    palette.setColor(QPalette::WindowText, between(palette.color(QPalette::Window),
                                                   palette.color(QPalette::WindowText), 0.7));
    return palette;
}

} // namespace

SettingsWindow::SettingsWindow(Settings& settings, const NativeKeyCodes& keyCodes,
                               OwnWindows& ownWindows)
    : settings_(settings), ownWindows_(ownWindows) {
    setWindowTitle(localized("Settings"));
    setWindowIcon(programIcon());
    setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    addStoreTrouble(*layout);
    addMenu(*layout);
    addShortcut(*layout, keyCodes);
    addOptions(*layout);
    addFooter(*layout);
    suitTheme();
}

void SettingsWindow::suitTheme() {
    version_->setPalette(mutedText(palette()));
}

void SettingsWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && version_) {
        suitTheme();
    }
}

void SettingsWindow::addStoreTrouble(QVBoxLayout& layout) {
    storeTrouble_ = new QPushButton(style()->standardIcon(QStyle::SP_MessageBoxWarning), {});
    storeTrouble_->setAutoDefault(false);
    storeTrouble_->hide();
    connect(storeTrouble_, &QPushButton::clicked, this,
            [this] { settings_.explainStoreTrouble(); });
    layout.addWidget(storeTrouble_, 0, Qt::AlignLeft);
}

void SettingsWindow::addMenu(QVBoxLayout& layout) {
    menu_ = new QWidget;
    auto* row = new QHBoxLayout(menu_);
    row->setContentsMargins(0, 0, 0, 0);
    const auto addButton = [&](const QString& text, void (Settings::*action)()) {
        auto* button = new QPushButton(text);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, action] { (settings_.*action)(); });
        row->addWidget(button);
    };
    addButton(localized("&Save Current Window…"), &Settings::saveWindowPosition);
    addButton(localized("Open Men&u"), &Settings::openMenu);
    layout.addWidget(menu_, 0, Qt::AlignLeft);
}

void SettingsWindow::addShortcut(QVBoxLayout& layout, const NativeKeyCodes& keyCodes) {
    auto* form = new QFormLayout;
    recorder_ = new ShortcutRecorderWidget(settings_.shortcutRecorder(), keyCodes);
    recorder_->setAccessibleName(localized("Shortcut that moves the window to the next display"));
    form->addRow(localized("&Move window to next display:"), recorder_);
    remark_ = makeShortcutRemarkLabel();
    form->addRow(QString(), remark_);
    layout.addLayout(form);
}

void SettingsWindow::addOptions(QVBoxLayout& layout) {
    allowMoveWindow_ =
        new QCheckBox(localized("A shortcut &pressed again moves the window to the next display"));
    startupItem_ = new QCheckBox(localized("Start at &login"));
    for (auto* box : {allowMoveWindow_, startupItem_}) {
        box->setStyle(new VisibleBoxes(box));
    }
    auto* restore = new QPushButton(localized("&Restore Built-in States"));
    restore->setAutoDefault(false); // Return presses nothing
    restore->setToolTip(localized("Puts the four built-in states back as they were at first. "
                                  "Your own states stay."));
    // Not clicked(), which is silent about what a screen reader toggles.
    connect(allowMoveWindow_, &QCheckBox::toggled, this,
            [this] { settings_.allowStateShortuctMoveWindow(); });
    connect(startupItem_, &QCheckBox::toggled, this, [this] { settings_.startupItem(); });
    connect(restore, &QPushButton::clicked, this,
            [this] { settings_.restoreDefaultWindowStates(); });
    layout.addWidget(allowMoveWindow_);
    layout.addWidget(startupItem_);
    layout.addWidget(restore, 0, Qt::AlignLeft);
}

void SettingsWindow::addFooter(QVBoxLayout& layout) {
    auto* footer = new QHBoxLayout;
    const auto addLink = [&](const QString& text, void (Settings::*action)()) {
        auto* link = new LinkButton(text);
        connect(link, &LinkButton::clicked, this, [this, action] { (settings_.*action)(); });
        footer->addWidget(link);
        return link;
    };
    version_ = new QLabel;
    footer->setSpacing(kSpacing);
    footer->addWidget(version_);
    footer->addStretch();
    websiteLinks_.append(addLink(localized("Website"), &Settings::website));
    addLink(localized("FAQ"), &Settings::faq);
    websiteLinks_.append(addLink(localized("Feedback"), &Settings::feedback));
    layout.addSpacing(kSpacing);
    layout.addLayout(footer);
}

void SettingsWindow::makeKeyAndOrderFront() {
    raise();
    ownWindows_.makeKey(winId());
}

bool SettingsWindow::startupItem() const {
    return startupItem_->isChecked();
}

void SettingsWindow::setStartupItem(bool on) {
    const QSignalBlocker notByUser(startupItem_);
    startupItem_->setChecked(on);
}

bool SettingsWindow::allowMoveWindow() const {
    return allowMoveWindow_->isChecked();
}

void SettingsWindow::setAllowMoveWindow(bool on) {
    const QSignalBlocker notByUser(allowMoveWindow_);
    allowMoveWindow_->setChecked(on);
}

void SettingsWindow::setVersion(const std::string& text) {
    version_->setText(QString::fromStdString(text));
}

void SettingsWindow::setWebsiteShown(bool isShown) {
    for (auto* link : websiteLinks_) {
        link->setVisible(isShown);
    }
}

void SettingsWindow::setStoreTrouble(const std::string& line) {
    storeTrouble_->setText(QString::fromStdString(line).replace('&', "&&"));
    storeTrouble_->setVisible(!line.empty());
}

void SettingsWindow::setMenuOffered(bool isOffered) {
    menu_->setVisible(isOffered);
}

void SettingsWindow::setShortcutRemark(const std::string& text) {
    showRemark(*remark_, text);
    recorder_->setRemark(QString::fromStdString(text));
}

} // namespace panewright
