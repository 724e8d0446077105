#pragma once

#include "desktop/qt/popover_parts.h"
#include "ui/save_shortcut_view_controller.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace panewright {

/// The save popover's controls.
class SaveShortcutWidget : public ShortcutPopoverWidget<SaveShortcutView> {
public:
    /// All of it must outlive the widget.
    SaveShortcutWidget(SaveShortcutViewController& controller, const NativeKeyCodes& keyCodes,
                       OwnWindows& ownWindows);

    void setApplicationImage(const ImagePtr& image) override;
    void setWindowStateImage(const ImagePtr& image) override;
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
    void setSavingRefusal(const std::string& text) override;

private:
    void addPictures();
    void addContext(SaveShortcutViewController& controller);

    // Owned by the window.
    QLabel* applicationImage_ = nullptr;
    QLabel* windowStateImage_ = nullptr;
    QRadioButton* forAppOnly_ = nullptr;
    QRadioButton* forAllApplications_ = nullptr;
    QCheckBox* prefersDisplay_ = nullptr;
    QLabel* refusal_ = nullptr;
    QPushButton* save_ = nullptr;
};

} // namespace panewright
