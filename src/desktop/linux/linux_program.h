#pragma once

#include "installation/installed_file.h"
#include "installation/program_facts.h"
#include "installation/program_places.h"
#include "platform/program_information.h"

#include <filesystem>
#include <string>

namespace panewright {

/// This program as an application of the desktop: its identifier names its desktop entry, bus name
/// and autostart entry.
class LinuxProgram : public ProgramInformation {
public:
    std::string bundleIdentifier() const override { return "com.quillfen.Panewright"; }
    std::string shortVersion() const override { return kProgramShortVersion; }
    std::string buildVersion() const override { return kProgramBuildVersion; }
    std::string website() const override { return kProgramWebsite; }
    std::string updateFeed() const override { return kProgramUpdateFeed; }
    std::optional<std::filesystem::path> helpPage(std::string_view language) const override {
        return installedFile(ownExecutable(),
                             std::filesystem::path("help") / language / "index.html");
    }
    std::string executableName() const override { return "panewright"; }
    std::string executablePath() const override {
        const auto own = ownExecutable();
        return commandOfProgram(own).value_or(own).string();
    }
};

} // namespace panewright
