#include "menubar/installed_hot_keys.h"

#include "menubar/hot_key_collisions.h"
#include "model/model.h"
#include "shortcuts/carbon_event_manager.h"

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
    case HotKeyOccasion::kSavingBegun:
        return HotKeyChange::kRelease;
    case HotKeyOccasion::kSavingAbandoned:
        return HotKeyChange::kLeave;
    case HotKeyOccasion::kStart:
    case HotKeyOccasion::kMenuOpened:
    case HotKeyOccasion::kStateRemoved:
    case HotKeyOccasion::kSettingsChanged:
    case HotKeyOccasion::kSavingFinished:
        return HotKeyChange::kInstall;
    }
    return HotKeyChange::kLeave;
}

void installHotKeys(const Model& model, const std::optional<RunningApplication>& frontmost,
                    const std::shared_ptr<CarbonKeyEvent>& moveToNextDisplay) {
    auto& registry = CarbonEventManager::sharedManager();
    registry.removeAllEvents();
    for (const auto& state : statesWithoutCollisions({statesIn(model.defaultWindowStates()),
                                                      statesIn(model.globalWindowStates()),
                                                      statesOf(frontmost, model)})) {
        state->installKeyEvent();
    }
    if (moveToNextDisplay) {
        registry.addCarbonKeyEvent(moveToNextDisplay);
    }
}

void releaseHotKeys() {
    CarbonEventManager::sharedManager().removeAllEvents();
}

} // namespace panewright
