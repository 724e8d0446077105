#include "ui/shortcut_remark.h"

#include "shortcuts/carbon_event_manager.h"

namespace panewright {

std::string shortcutRemark(const HotKeys& hotKeys, const TextServices& text, std::uint16_t keyCode,
                           std::uint64_t modifierFlags) {
    const auto modifiers =
        static_cast<std::uint32_t>(CarbonEventManager::cocoaToCarbonModifierFlags(modifierFlags));
    return hotKeys.isTakenByAnotherProgram(keyCode, modifiers)
               ? text.localized("Another program uses this shortcut.")
               : "";
}

} // namespace panewright
