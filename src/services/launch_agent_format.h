#pragma once

#include "platform/login_item.h"

namespace panewright {

/// Launch agents: XML property lists that the service manager reads when the user's graphical
/// session begins.
class LaunchAgentFormat : public LoginItemFormat {
public:
    /// The user's folder for them is "Library/LaunchAgents" in the home folder.
    explicit LaunchAgentFormat(std::filesystem::path home) : home_(std::move(home)) {}

    std::filesystem::path folder() const override { return home_ / "Library" / "LaunchAgents"; }
    std::string fileName(std::string_view name) const override { return std::string(name); }
    std::string encode(const LaunchAgent& agent) const override;
    std::optional<std::string> programIn(std::string_view content) const override;
    bool isSwitchedOff(std::string_view /*content*/) const override { return false; }
    bool isOutdated(std::string_view /*content*/) const override { return false; }

private:
    std::filesystem::path home_;
};

} // namespace panewright
