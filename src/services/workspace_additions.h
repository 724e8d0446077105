#pragma once

#include "platform/program_information.h"
#include "platform/workspace.h"

namespace panewright {

/// Whether the frontmost application is this program, by bundle identifier.
bool isFrontmostAppThisApp(const Workspace& workspace, const ProgramInformation& program);

/// Brings this program to the front unless it is frontmost already.
void bringApplicationToFrontIfInBackground(Workspace& workspace,
                                           const ProgramInformation& program);

} // namespace panewright
