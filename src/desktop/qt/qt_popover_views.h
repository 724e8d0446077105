#pragma once

#include "platform/native_key_codes.h"
#include "ui/save_shortcut_view.h"

namespace panewright {

/// Popovers of Qt widgets.
class QtPopoverViews : public PopoverViewFactory {
public:
    explicit QtPopoverViews(const NativeKeyCodes& keyCodes) : keyCodes_(keyCodes) {}

    std::unique_ptr<SaveShortcutView>
    makeSaveShortcutView(SaveShortcutViewController& controller) override;

private:
    const NativeKeyCodes& keyCodes_;
};

} // namespace panewright
