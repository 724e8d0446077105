#include "desktop/qt/edit_shortcut_widget.h"

#include "desktop/qt/elided_text.h"
#include "desktop/qt/key_events.h"
#include "desktop/qt/localized.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QPushButton>
#include <QShortcut>

namespace panewright {

EditShortcutWidget::EditShortcutWidget(EditShortcutViewController& controller,
                                       const NativeKeyCodes& keyCodes, OwnWindows& ownWindows)
    : ShortcutPopoverWidget(controller, keyCodes, ownWindows, localized("Edit Window State")) {
    context_ = new QLabel;
    updateWindowState_ = new QCheckBox(localized("&Replace its frame by the current window's"));
    parts().form().addRow(QString(), context_);
    parts().form().addRow(QString(), updateWindowState_);
    parts().addButton(localized("&Cancel"), [&controller] { controller.cancel(); });
    parts().addButton(localized("&Save"), [&controller] { controller.save(); }).setDefault(true);
    addDeletion(controller);
}

/// Space presses a button when it is let go, and Shift may be let go before.
void EditShortcutWidget::addDeletion(EditShortcutViewController& controller) {
    auto& button = parts().addButtonAtLeft(localized("&Delete"), [this, &controller] {
        controller.deleteWindowState(
            modifierFlagsOf(heldAtPress_ | QGuiApplication::keyboardModifiers()));
    });
    button.setToolTip(localized("Asks first, unless Shift is held."));
    QObject::connect(&button, &QPushButton::pressed,
                     [this] { heldAtPress_ = QGuiApplication::keyboardModifiers(); });
    // The button's own shortcut is without Shift.
    if (const auto own = QKeySequence::mnemonic(button.text()); !own.isEmpty()) {
        const QKeyCombination withShift(own[0].keyboardModifiers() | Qt::ShiftModifier,
                                        own[0].key());
        QObject::connect(new QShortcut(QKeySequence(withShift), &button), &QShortcut::activated,
                         &button, &QPushButton::click);
    }
}

void EditShortcutWidget::setContext(const std::string& text) {
    showElided(*context_, text, kPopoverFieldWidth);
    parts().window().contentChanged();
}

bool EditShortcutWidget::updateWindowState() const {
    return updateWindowState_->isChecked();
}

void EditShortcutWidget::setUpdateWindowStateEnabled(bool enabled) {
    updateWindowState_->setEnabled(enabled);
    updateWindowState_->setToolTip(
        enabled ? localized("The frame that the window in front had when this was opened.")
                : localized("The frame of a built-in state follows from the display."));
}

} // namespace panewright
