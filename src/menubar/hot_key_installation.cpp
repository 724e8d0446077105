#include "menubar/hot_key_installation.h"

#include "menubar/applicable_window_states.h"
#include "shortcuts/carbon_event_manager.h"
#include "shortcuts/modifier_flags.h"

namespace panewright {
HotKeyChange hotKeyChangeAt(HotKeyOccasion occasion, bool isSavePopoverShown) {
    switch (occasion) {
    case HotKeyOccasion::kActivation:
    case HotKeyOccasion::kPermission:
        return isSavePopoverShown ? HotKeyChange::kLeave : HotKeyChange::kInstall;
    case HotKeyOccasion::kPopoverOpened:
        return HotKeyChange::kRelease;
    case HotKeyOccasion::kPopoverAbandoned:
        return HotKeyChange::kLeave;
    case HotKeyOccasion::kStart:
    case HotKeyOccasion::kMenuOpened:
    case HotKeyOccasion::kStateRemoved:
    case HotKeyOccasion::kStatesRestored:
    case HotKeyOccasion::kSettingsChanged:
    case HotKeyOccasion::kPopoverFinished:
        return HotKeyChange::kInstall;
    }
    return HotKeyChange::kLeave;
}

void installHotKeys(const Model& model, const std::optional<RunningApplication>& frontmost,
                    const std::shared_ptr<CarbonKeyEvent>& moveToNextDisplay) {
    auto& registry = CarbonEventManager::sharedManager();
    registry.removeAllEvents();
    const auto states = applicableWindowStates(model, frontmost);
    for (const auto& [number, place] : placesWithoutCollisions(states)) {
        states[place]->installKeyEvent();
    }
    if (moveToNextDisplay) {
        registry.addCarbonKeyEvent(moveToNextDisplay);
    }
}

/// Not by the registry's number, which lock keys and the Function key would change.
std::shared_ptr<CarbonKeyEvent> installedHotKey(const KeyEvent& key) {
    const auto held = key.modifierFlags & kShortcutModifiers;
    for (const auto& [number, event] : CarbonEventManager::sharedManager().keyEvents()) {
        if (event->keyCode() == key.keyCode &&
            (event->modifierFlags() & kShortcutModifiers) == held) {
            return event;
        }
    }
    return nullptr;
}

void releaseHotKeys() {
    CarbonEventManager::sharedManager().removeAllEvents();
}

} // namespace panewright
