#include "desktop/linux/command_line.h"

#include "base/log.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <span>
#include <string_view>
#include <sysexits.h>

namespace panewright {
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

constexpr std::string_view kBackground = "--background";

} // namespace

std::optional<int> answerCommandLine(int argc, const char* const* argv,
                                     const ProgramInformation& program) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const auto has = [&](std::string_view brief, std::string_view full) {
        return std::ranges::any_of(arguments.subspan(1), [&](std::string_view argument) {
            return argument == brief || argument == full;
        });
    };
    if (has("-h", "--help")) {
        std::fputs(kHelp, stdout);
        return 0;
    }
    if (has("-V", "--version")) {
        fmt::print("Panewright {} ({})\n", program.shortVersion(), program.buildVersion());
        return 0;
    }
    return std::nullopt;
}

bool isForBackground(int argc, const char* const* argv) {
    return std::any_of(argv + 1, argv + argc,
                       [](std::string_view argument) { return argument == kBackground; });
}

std::optional<int> refuseUnknownArguments(int argc, const char* const* argv) {
    const auto* const unknown = std::find_if(
        argv + 1, argv + argc, [](std::string_view argument) { return argument != kBackground; });
    if (unknown == argv + argc) {
        return std::nullopt;
    }
    logLine(fmt::format("unknown argument '{}'; --help tells what there is", *unknown));
    return EX_USAGE;
}

} // namespace panewright
