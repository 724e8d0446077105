#pragma once

#include "desktop/qt/popover_window.h"
#include "ui/save_shortcut_view_controller.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;

namespace panewright {

/// The save popover's controls.
class SaveShortcutWidget : public QObject, public SaveShortcutView {
    Q_OBJECT

public:
    /// All of it must outlive the widget.
    SaveShortcutWidget(SaveShortcutViewController& controller, const NativeKeyCodes& keyCodes,
                       OwnWindows& ownWindows);

    Popover& popover() override { return window_; }
    void setApplicationImage(const ImagePtr& image) override;
    void setWindowStateImage(const ImagePtr& image) override;
    std::string windowStateName() const override;
    void setWindowStateName(const std::string& name) override;
    void focusWindowStateName() override;
    bool forAppOnly() const override;
    void setForAppOnly(bool on) override;
    void setForAppOnlyEnabled(bool enabled) override;
    void setForAppOnlyTitle(const std::string& title) override;
    void setForAppOnlyToolTip(const std::string& text) override;
    bool forAllApplications() const override;
    void setForAllApplications(bool on) override;
    void setForAllApplicationsToolTip(const std::string& text) override;
    bool prefersDisplay() const override;
    void setPrefersDisplay(bool on) override;
    void setShortcutRemark(const std::string& text) override;

private:
    void addHeader(QVBoxLayout& layout);
    void addFields(QVBoxLayout& layout, const NativeKeyCodes& keyCodes);
    void addButtons(QVBoxLayout& layout);

    SaveShortcutViewController& controller_;
    PopoverWindow window_;
    // Owned by the window.
    QLabel* applicationImage_ = nullptr;
    QLabel* windowStateImage_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLabel* remark_ = nullptr;
    QRadioButton* forAppOnly_ = nullptr;
    QRadioButton* forAllApplications_ = nullptr;
    QCheckBox* prefersDisplay_ = nullptr;
};

} // namespace panewright
