#pragma once

#include "desktop/shared/native_key_codes.h"
#include "desktop/shared/own_windows.h"
#include "ui/view_factory.h"

namespace panewright {

/// Views of Qt widgets.
class QtViews : public ViewFactory {
public:
    QtViews(const NativeKeyCodes& keyCodes, OwnWindows& ownWindows);

    std::unique_ptr<EditShortcutView>
    makeEditShortcutView(EditShortcutViewController& controller) override;
    std::unique_ptr<SaveShortcutView>
    makeSaveShortcutView(SaveShortcutViewController& controller) override;
    std::unique_ptr<SettingsView> makeSettingsView(Settings& controller) override;

private:
    const NativeKeyCodes& keyCodes_;
    OwnWindows& ownWindows_;
};

} // namespace panewright
