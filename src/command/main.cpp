// The command "panewright": what people and scripts start.

#include "command/desktop_program.h"
#include "installation/program_version.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <string_view>

namespace {

constexpr const char* kHelp =
    R"(Usage: panewright [OPTION]
Puts the focused window into a saved state when its shortcut is pressed. Stays in
the status bar until it is quit there.

Started again, it opens the settings of the one that runs.

      --background  open nothing if one runs already
  -h, --help        print this and end
  -V, --version     print the version and end
)";

} // namespace

int main(int argc, char* argv[]) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const auto has = [&](std::string_view brief, std::string_view full) {
        return std::any_of(arguments.begin() + 1, arguments.end(), [&](std::string_view argument) {
            return argument == brief || argument == full;
        });
    };
    if (has("-h", "--help")) {
        std::fputs(kHelp, stdout);
        return 0;
    }
    if (has("-V", "--version")) {
        std::printf("Panewright %s (%s)\n", panewright::kProgramShortVersion,
                    panewright::kProgramBuildVersion);
        return 0;
    }
    return panewright::command::becomeDesktopProgram(argv);
}
