#pragma once

#include "platform/login_item.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

// The one that starts this program.
inline constexpr const char* kLaunchAgentLabel = "com.quillfen.Panewright.Agent";
inline constexpr const char* kLaunchAgentFileName = "com.quillfen.Panewright.Agent.plist";

/// Starts a program at login, by a file in the user's folder for them. The file is the truth: it is
/// looked at each time. A change takes effect at the next login. Failures are ignored.
class LaunchAgentStartupItem {
public:
    /// Creates the folder. An empty file name names no file: nothing is then installed.
    LaunchAgentStartupItem(const LoginItemFormat& format, std::string executablePath,
                           std::string fileName, std::string label);

    const std::string& label() const { return label_; }
    const std::string& fileName() const { return fileName_; }
    const std::string& executablePath() const { return executablePath_; }
    void setProgramArguments(std::optional<std::vector<std::string>> arguments) {
        programArguments_ = std::move(arguments);
    }

    std::filesystem::path launchAgentsPath() const { return format_.folder(); }
    std::optional<std::filesystem::path> installedAgentPath() const;

    void createAgentPath() const;

    /// Replaces whatever file is there.
    void install() const;
    void uninstall() const;

    /// Whether the file is there and has not been switched off; what is in it otherwise does not
    /// matter.
    bool isInstalled() const;

    /// Lets an installed item start this copy of the program if it names another one, and writes an
    /// outdated one anew.
    void updateExecutablePath() const;

private:
    std::optional<std::string> installedContent() const;

    const LoginItemFormat& format_;
    std::string executablePath_;
    std::string fileName_;
    std::string label_;
    std::optional<std::vector<std::string>> programArguments_;
};

} // namespace panewright
