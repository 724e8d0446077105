#pragma once

#include "platform/login_item.h"

namespace panewright {

/// Programs started at login as desktop entries in the user's autostart folder (freedesktop.org,
/// "Desktop Application Autostart Specification").
class AutostartEntryFormat : public LoginItemFormat {
public:
    std::filesystem::path folder() const override;
    /// "X.plist" is "X.desktop" here.
    std::string fileName(std::string_view name) const override;
    std::string encode(const LaunchAgent& agent) const override;
    std::optional<std::string> programIn(std::string_view content) const override;
    /// "Hidden=true": the entry counts as deleted.
    bool isSwitchedOff(std::string_view content) const override;
    /// Without "TryExec" the session tries to start the program though it has been removed.
    bool isOutdated(std::string_view content) const override;
};

} // namespace panewright
