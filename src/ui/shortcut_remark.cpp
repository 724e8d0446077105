#include "ui/shortcut_remark.h"

#include "base/text_with.h"
#include "model/model.h"
#include "shortcuts/carbon_event_manager.h"

namespace panewright {
namespace {

bool isOn(const CarbonKeyEvent* event, std::uint64_t key) {
    return event &&
           CarbonEventManager::keyForKeyCode(event->keyCode(), event->modifierFlags()) == key;
}

} // namespace

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

std::string otherUsesRemark(const Model& model, const TextServices& text, const ShortcutUse& use) {
    std::string names;
    const auto add = [&](const std::string& name) {
        names += (names.empty() ? "“" : ", “") + name + "”";
    };
    if (isOn(model.moveToNextWindowKeyEvent().get(), use.key)) {
        add(text.localized("Move to Next Display"));
    }
    for (const auto& [key, states] : model.windowStates().value_or(WindowStates())) {
        if (use.application && key != *use.application && !appliesEverywhere(key)) {
            continue;
        }
        for (const auto& state : *states) {
            if (state != use.state && isOn(state->keyEvent().get(), use.key)) {
                add(state->windowStateName().value_or(""));
            }
        }
    }
    return names.empty() ? "" : textWith(text.localized("Also used by %@."), names);
}

std::string refusedKeyRemark(const TextServices& text) {
    return text.localized("This key cannot be a shortcut.");
}

} // namespace panewright
