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

  -h, --help     print this and end
  -V, --version  print the version and end
)";

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

std::optional<int> refuseUnknownArguments(int argc, const char* const* argv) {
    if (argc <= 1) {
        return std::nullopt;
    }
    logLine(fmt::format("unknown argument '{}'; --help tells what there is", argv[1]));
    return EX_USAGE;
}

} // namespace panewright
