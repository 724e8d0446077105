#include "services/workspace_additions.h"

namespace panewright {

bool isFrontmostAppThisApp(const Workspace& workspace, const ProgramInformation& program) {
    const auto frontmost = workspace.frontmostApplication();
    return frontmost && frontmost->bundleIdentifier == program.bundleIdentifier();
}

void bringApplicationToFrontIfInBackground(Workspace& workspace,
                                           const ProgramInformation& program) {
    if (!isFrontmostAppThisApp(workspace, program)) {
        workspace.bringThisApplicationToFront();
    }
}

} // namespace panewright
