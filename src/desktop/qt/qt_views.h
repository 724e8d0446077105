#pragma once

#include "platform/compositing.h"
#include "platform/native_key_codes.h"
#include "ui/view_factory.h"

namespace panewright {

/// Views of Qt widgets.
class QtViews : public ViewFactory {
public:
    QtViews(const NativeKeyCodes& keyCodes, const Compositing& compositing)
        : keyCodes_(keyCodes), compositing_(compositing) {}

    std::unique_ptr<SaveShortcutView>
    makeSaveShortcutView(SaveShortcutViewController& controller) override;
    std::unique_ptr<SettingsView> makeSettingsView(Settings& controller) override;

private:
    const NativeKeyCodes& keyCodes_;
    const Compositing& compositing_;
};

} // namespace panewright
