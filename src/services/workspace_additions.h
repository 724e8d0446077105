#pragma once

#include "platform/login_item.h"
#include "platform/program_information.h"
#include "platform/workspace.h"

#include <filesystem>

namespace panewright {

/// Whether the frontmost application is this program, by bundle identifier.
bool isFrontmostAppThisApp(const Workspace& workspace, const ProgramInformation& program);

/// Brings this program to the front unless it is frontmost already.
void bringApplicationToFrontIfInBackground(Workspace& workspace, const ProgramInformation& program);

// The older way to start at login, which copies a file as it is into the folder for that, under its
// own name. Failures are ignored.
void installStartupLaunchdItem(const LoginItemFormat& format, const std::filesystem::path& file);
void uninstallStartupLaunchdItem(const LoginItemFormat& format, const std::filesystem::path& file);
bool isStartupItemInstalled(const LoginItemFormat& format, const std::filesystem::path& file);

} // namespace panewright
