#pragma once

#include "ui/edit_shortcut_view.h"
#include "ui/save_shortcut_view.h"
#include "ui/settings_view.h"

#include <memory>

namespace panewright {

class EditShortcutViewController;
class SaveShortcutViewController;
class Settings;

/// Makes the views of this layer, each when it is first needed. The controller outlives its view.
class ViewFactory {
public:
    virtual ~ViewFactory() = default;

    virtual std::unique_ptr<EditShortcutView>
    makeEditShortcutView(EditShortcutViewController& controller) = 0;
    virtual std::unique_ptr<SaveShortcutView>
    makeSaveShortcutView(SaveShortcutViewController& controller) = 0;
    virtual std::unique_ptr<SettingsView> makeSettingsView(Settings& controller) = 0;
};

} // namespace panewright
