#include "ui/shortcut_remark.h"

#include "base/text_with.h"
#include "model/model.h"
#include "shortcuts/carbon_event_manager.h"
#include "shortcuts/modifier_flags.h"

namespace panewright {
namespace {

bool isOn(const CarbonKeyEvent* event, std::uint64_t key) {
    return event &&
           CarbonEventManager::keyForKeyCode(event->keyCode(), event->modifierFlags()) == key;
}

/// `key` is as the registry counts it.
std::string otherUsesRemark(const ShortcutRemarkServices& services, std::uint64_t key,
                            const ShortcutOwner& owner) {
    std::string names;
    const auto add = [&](const std::string& name) {
        names += (names.empty() ? "“" : ", “") + name + "”";
    };
    const auto& [hotKeys, model, text] = services;
    if (owner.state && isOn(model.moveToNextWindowKeyEvent().get(), key)) {
        add(moveToNextDisplayTitle(text));
    }
    for (const auto& [place, states] : model.windowStates().value_or(WindowStates())) {
        if (owner.application && !appliesTo(place, *owner.application)) {
            continue;
        }
        for (const auto& state : *states) {
            if (state != owner.state && isOn(state->keyEvent().get(), key)) {
                add(state->windowStateName().value_or(""));
            }
        }
    }
    return names.empty() ? "" : textWith(text.localized("Also used by %@."), names);
}

} // namespace

bool isShortcutTaken(const HotKeys& hotKeys, std::uint64_t keyCode, std::uint64_t modifierFlags) {
    return hotKeys.isTakenByAnotherProgram(
        static_cast<std::uint32_t>(keyCode),
        static_cast<std::uint32_t>(cocoaToCarbonModifierFlags(modifierFlags)));
}

std::string shortcutRemark(const ShortcutRemarkServices& services, std::uint64_t keyCode,
                           std::uint64_t modifierFlags, const ShortcutOwner& owner) {
    auto others =
        otherUsesRemark(services, CarbonEventManager::keyForKeyCode(keyCode, modifierFlags), owner);
    if (!isShortcutTaken(services.hotKeys, keyCode, modifierFlags)) {
        return others;
    }
    return services.text.localized("Another program uses this shortcut.") +
           (others.empty() ? "" : "\n") + others;
}

std::string moveToNextDisplayTitle(const TextServices& text) {
    return text.localized("Move to Next Display");
}

std::string refusedKeyRemark(const TextServices& text) {
    return text.localized("This key cannot be a shortcut.");
}

} // namespace panewright
