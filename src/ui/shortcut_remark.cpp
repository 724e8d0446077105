#include "ui/shortcut_remark.h"

#include "shortcuts/carbon_event_manager.h"

namespace panewright {

bool isShortcutTaken(const HotKeys& hotKeys, std::uint64_t keyCode, std::uint64_t modifierFlags) {
    return hotKeys.isTakenByAnotherProgram(
        static_cast<std::uint32_t>(keyCode),
        static_cast<std::uint32_t>(CarbonEventManager::cocoaToCarbonModifierFlags(modifierFlags)));
}

std::string shortcutRemark(const HotKeys& hotKeys, const TextServices& text, std::uint64_t keyCode,
                           std::uint64_t modifierFlags) {
    return isShortcutTaken(hotKeys, keyCode, modifierFlags)
               ? text.localized("Another program uses this shortcut.")
               : "";
}

std::string refusedKeyRemark(const TextServices& text) {
    return text.localized("This key cannot be a shortcut.");
}

} // namespace panewright
