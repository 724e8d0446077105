#include "desktop/qt/qt_popover_views.h"

#include "desktop/qt/save_shortcut_widget.h"

namespace panewright {

std::unique_ptr<SaveShortcutView>
QtPopoverViews::makeSaveShortcutView(SaveShortcutViewController& controller) {
    return std::make_unique<SaveShortcutWidget>(controller, keyCodes_);
}

} // namespace panewright
