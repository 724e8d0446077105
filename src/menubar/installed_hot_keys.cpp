#include "menubar/installed_hot_keys.h"

#include "menubar/hot_key_collisions.h"
#include "model/model.h"
#include "shortcuts/carbon_event_manager.h"
#include "shortcuts/modifier_flags.h"

namespace panewright {
namespace {

WindowStateArray statesIn(const std::shared_ptr<WindowStateArray>& array) {
    return array ? *array : WindowStateArray{};
}

WindowStateArray statesOf(const std::optional<RunningApplication>& application,
                          const Model& model) {
    return application && application->bundleIdentifier
               ? statesIn(model.windowStatesForAppBundleId(*application->bundleIdentifier))
               : WindowStateArray{};
}

} // namespace

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
    for (const auto& state : statesWithoutCollisions(applicableWindowStates(model, frontmost))) {
        state->installKeyEvent();
    }
    if (moveToNextDisplay) {
        registry.addCarbonKeyEvent(moveToNextDisplay);
    }
}

std::vector<WindowStateArray>
applicableWindowStates(const Model& model, const std::optional<RunningApplication>& frontmost) {
    return {statesIn(model.defaultWindowStates()), statesIn(model.globalWindowStates()),
            statesOf(frontmost, model)};
}

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
