#pragma once

#include "desktop/shared/native_key_codes.h"
#include "desktop/shared/own_windows.h"
#include "ui/settings.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace panewright {

class LinkButton;
class ShortcutRecorderWidget;

/// The settings window, in the colours of the desktop's theme.
class SettingsWindow : public QDialog, public SettingsView {
    Q_OBJECT

public:
    /// All of it must outlive the window.
    SettingsWindow(Settings& settings, const NativeKeyCodes& keyCodes, OwnWindows& ownWindows);

    void showWindow() override { show(); }
    void makeKeyAndOrderFront() override;
    bool startupItem() const override;
    void setStartupItem(bool on) override;
    bool allowMoveWindow() const override;
    void setAllowMoveWindow(bool on) override;
    void setVersion(const std::string& text) override;
    void setShortcutRemark(const std::string& text) override;
    void setStoreTrouble(const std::string& line) override;
    void setWebsiteShown(bool isShown) override;
    void setMenuOffered(bool isOffered) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    /// Colours that the theme does not give.
    void suitTheme();
    void addStoreTrouble(QVBoxLayout& layout);
    void addMenu(QVBoxLayout& layout);
    void addShortcut(QVBoxLayout& layout, const NativeKeyCodes& keyCodes);
    void addOptions(QVBoxLayout& layout);
    void addFooter(QVBoxLayout& layout);

    Settings& settings_;
    OwnWindows& ownWindows_;
    // Owned by the window.
    QCheckBox* startupItem_ = nullptr;
    QCheckBox* allowMoveWindow_ = nullptr;
    ShortcutRecorderWidget* recorder_ = nullptr;
    QLabel* remark_ = nullptr;
    QPushButton* storeTrouble_ = nullptr;
    QWidget* menu_ = nullptr;
    QLabel* version_ = nullptr;
    /// To the pages that only a website has.
    QList<LinkButton*> websiteLinks_;
};

} // namespace panewright
