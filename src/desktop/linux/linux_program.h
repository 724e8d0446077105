#pragma once

#include "desktop/linux/installed_file.h"
#include "desktop/linux/program_version.h"
#include "platform/program_information.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace panewright {

/// This program as an application of the desktop: its identifier names its desktop entry, bus name
/// and autostart entry.
class LinuxProgram : public ProgramInformation {
public:
    std::string bundleIdentifier() const override { return "com.quillfen.Panewright"; }
    std::string shortVersion() const override { return kProgramShortVersion; }
    std::string buildVersion() const override { return kProgramBuildVersion; }
    std::string website() const override { return kProgramWebsite; }
    std::optional<std::filesystem::path> helpPage(std::string_view language) const override {
        return installedFile(executablePath(),
                             std::filesystem::path("help") / language / "index.html");
    }
    std::string executableName() const override { return "panewright"; }
    std::string executablePath() const override {
        std::error_code ignored;
        return std::filesystem::read_symlink("/proc/self/exe", ignored).string(); // proc(5)
    }
};

} // namespace panewright
