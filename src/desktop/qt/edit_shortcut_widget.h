#pragma once

#include "desktop/qt/popover_parts.h"
#include "ui/edit_shortcut_view_controller.h"

class QCheckBox;
class QLabel;

namespace panewright {

/// The edit popover's controls.
class EditShortcutWidget : public ShortcutPopoverWidget<EditShortcutView> {
public:
    /// All of it must outlive the widget.
    EditShortcutWidget(EditShortcutViewController& controller, const NativeKeyCodes& keyCodes,
                       OwnWindows& ownWindows);

    void setContext(const std::string& text) override;
    bool updateWindowState() const override;
    void setUpdateWindowStateEnabled(bool enabled) override;

private:
    void addDeletion(EditShortcutViewController& controller);

    // Owned by the window.
    QLabel* context_ = nullptr;
    QCheckBox* updateWindowState_ = nullptr;

    /// When the button that deletes was pressed.
    Qt::KeyboardModifiers heldAtPress_;
};

} // namespace panewright
