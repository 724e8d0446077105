#include "services/workspace_additions.h"

#include "base/file.h"

#include <system_error>

namespace panewright {
namespace {

namespace fs = std::filesystem;

fs::path copyOf(const fs::path& file, const LoginItemFormat& format) {
    return format.folder() / file.filename();
}

} // namespace

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

void installStartupLaunchdItem(const LoginItemFormat& format, const fs::path& file) {
    if (!format.folder().empty()) {
        static_cast<void>(createFolders(format.folder()));
    }
    std::error_code ignored;
    fs::copy_file(file, copyOf(file, format), ignored);
}

void uninstallStartupLaunchdItem(const LoginItemFormat& format, const fs::path& file) {
    std::error_code ignored;
    fs::remove(copyOf(file, format), ignored);
}

bool isStartupItemInstalled(const LoginItemFormat& format, const fs::path& file) {
    std::error_code ignored;
    return fs::exists(copyOf(file, format), ignored);
}

} // namespace panewright
