#pragma once

#include "platform/native_key_codes.h"
#include "ui/view_factory.h"

namespace panewright {

/// Views of Qt widgets.
class QtViews : public ViewFactory {
public:
    explicit QtViews(const NativeKeyCodes& keyCodes) : keyCodes_(keyCodes) {}

    std::unique_ptr<SaveShortcutView>
    makeSaveShortcutView(SaveShortcutViewController& controller) override;
    std::unique_ptr<SettingsView> makeSettingsView(Settings& controller) override;

private:
    const NativeKeyCodes& keyCodes_;
};

} // namespace panewright
