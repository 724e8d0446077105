#pragma once

#include "desktop/qt/popover_window.h"
#include "ui/popover_controller.h"

class QBoxLayout;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace panewright {

// In Qt's units.
constexpr int kPopoverFieldWidth = 240;

class ShortcutRecorderWidget;

/// What the popovers have in common in which a state gets its name and its shortcut: the window, a
/// heading, the two fields and buttons.
class PopoverParts {
public:
    /// All of it must outlive the parts.
    PopoverParts(PopoverController& controller, const NativeKeyCodes& keyCodes,
                 OwnWindows& ownWindows, const QString& title);

    PopoverWindow& window() { return window_; }
    /// The line of the heading, to which pictures may be added.
    QBoxLayout& header() { return *header_; }
    /// The fields, below which others may be added.
    QFormLayout& form() { return *form_; }
    /// Adds a button at the right end of its line.
    QPushButton& addButton(const QString& text, std::function<void()> clicked);
    /// Adds one at the left, the last that Tab comes to.
    QPushButton& addButtonAtLeft(const QString& text, std::function<void()> clicked);

    std::string windowStateName() const;
    void setWindowStateName(const std::string& name);
    void focusWindowStateName();
    void setShortcutRemark(const std::string& text);

private:
    void addFields(PopoverController& controller, const NativeKeyCodes& keyCodes);

    PopoverWindow window_;
    // Owned by the window.
    QVBoxLayout* layout_ = nullptr;
    QBoxLayout* header_ = nullptr;
    QFormLayout* form_ = nullptr;
    QBoxLayout* buttons_ = nullptr;
    QLineEdit* name_ = nullptr;
    ShortcutRecorderWidget* recorder_ = nullptr;
    QLabel* remark_ = nullptr;
};

/// A view that answers with these parts what both popovers are asked.
template <class View>
class ShortcutPopoverWidget : public View {
public:
    Popover& popover() override { return parts_.window(); }
    std::string windowStateName() const override { return parts_.windowStateName(); }
    void setWindowStateName(const std::string& name) override { parts_.setWindowStateName(name); }
    void focusWindowStateName() override { parts_.focusWindowStateName(); }
    void setShortcutRemark(const std::string& text) override { parts_.setShortcutRemark(text); }

protected:
    template <class... Arguments>
    explicit ShortcutPopoverWidget(Arguments&&... arguments)
        : parts_(std::forward<Arguments>(arguments)...) {}

    PopoverParts& parts() { return parts_; }

private:
    PopoverParts parts_;
};

} // namespace panewright
