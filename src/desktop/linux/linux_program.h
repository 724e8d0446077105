#pragma once

#include "platform/program_information.h"

namespace panewright {

/// This program as an application of the desktop: its identifier names its desktop entry, bus name
/// and autostart entry.
class LinuxProgram : public ProgramInformation {
public:
    std::string bundleIdentifier() const override { return "com.quillfen.Panewright"; }
    std::string executableName() const override { return "panewright"; }
};

} // namespace panewright
