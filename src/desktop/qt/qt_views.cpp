#include "desktop/qt/qt_views.h"

#include "desktop/qt/accessible_control.h"
#include "desktop/qt/edit_shortcut_widget.h"
#include "desktop/qt/save_shortcut_widget.h"
#include "desktop/qt/settings_window.h"

namespace panewright {

QtViews::QtViews(const NativeKeyCodes& keyCodes, OwnWindows& ownWindows)
    : keyCodes_(keyCodes), ownWindows_(ownWindows) {
    describeOwnControls();
}

std::unique_ptr<EditShortcutView>
QtViews::makeEditShortcutView(EditShortcutViewController& controller) {
    return std::make_unique<EditShortcutWidget>(controller, keyCodes_, ownWindows_);
}

std::unique_ptr<SaveShortcutView>
QtViews::makeSaveShortcutView(SaveShortcutViewController& controller) {
    return std::make_unique<SaveShortcutWidget>(controller, keyCodes_, ownWindows_);
}

std::unique_ptr<SettingsView> QtViews::makeSettingsView(Settings& controller) {
    return std::make_unique<SettingsWindow>(controller, keyCodes_, ownWindows_);
}

} // namespace panewright
