#pragma once

#include "platform/analytics.h"

#include <string_view>

namespace panewright {

/// The one entry point for usage events.
class Tracking {
public:
    explicit Tracking(Analytics& analytics) : analytics_(analytics) {}

    void trackEvent(std::string_view name, const EventAttributes& attributes = {}) const {
        analytics_.logCustomEvent(name, attributes);
    }

private:
    Analytics& analytics_;
};

// Names of the events.
constexpr std::string_view kAllowShortcutToMoveDisplaysEvent = "AllowShortcutToMoveDisplays";
constexpr std::string_view kApplyWindowStateEvent = "ApplyWindowState";
constexpr std::string_view kCancelEditWindowStateEvent = "CancelEditWindowState";
constexpr std::string_view kCancelSaveWindowStateEvent = "CancelSaveWindowState";
constexpr std::string_view kCheckForUpdatesEvent = "CheckForUpdates";
constexpr std::string_view kDeleteWindowStateEvent = "DeleteWindowState";
constexpr std::string_view kEditWindowStateEvent = "EditWindowState";
constexpr std::string_view kInstallStartupItemEvent = "InstallStartupItem";
constexpr std::string_view kMoveToNextDisplayEvent = "MoveToNextDisplay";
constexpr std::string_view kOpenFAQEvent = "OpenFAQ";
constexpr std::string_view kOpenMenuEvent = "OpenMenu";
constexpr std::string_view kPreferencesFAQEvent = "PreferencesFAQ";
constexpr std::string_view kPreferencesFeedbackEvent = "PreferencesFeedback";
constexpr std::string_view kPreferencesWebsiteEvent = "PreferencesWebsite";
constexpr std::string_view kRemoveStartupItemEvent = "RemoveStartupItem";
constexpr std::string_view kRemoveWindowStateEvent = "RemoveWindowState";
constexpr std::string_view kRestoreDefaultWindowStatesEvent = "RestoreDefaultWindowStates";
constexpr std::string_view kSaveEditsToWindowStateEvent = "SaveEditsToWindowState";
constexpr std::string_view kSaveWindowStateEvent = "SaveWindowState";
constexpr std::string_view kShowSettingsEvent = "ShowSettings";

} // namespace panewright
