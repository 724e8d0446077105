#include "desktop/linux/command_line.h"

#include "base/log.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <sysexits.h>

namespace panewright {
namespace {

constexpr std::string_view kBackground = "--background";
constexpr std::string_view kActivated = "--activated";

bool has(std::string_view wanted, int argc, const char* const* argv) {
    return std::any_of(argv + 1, argv + argc,
                       [&](std::string_view argument) { return argument == wanted; });
}

/// The end of the arguments where there is none.
const char* const* firstUnknown(int argc, const char* const* argv) {
    return std::find_if(argv + 1, argv + argc, [](std::string_view argument) {
        return argument != kBackground && argument != kActivated && argument != kRelaunchedOption;
    });
}

} // namespace

bool isForBackground(int argc, const char* const* argv) {
    return has(kBackground, argc, argv);
}

bool isActivatedByBus(int argc, const char* const* argv) {
    return has(kActivated, argc, argv);
}

bool isRelaunched(int argc, const char* const* argv) {
    return has(kRelaunchedOption, argc, argv);
}

bool knowsArguments(int argc, const char* const* argv) {
    return firstUnknown(argc, argv) == argv + argc;
}

std::optional<int> refuseUnknownArguments(int argc, const char* const* argv) {
    if (knowsArguments(argc, argv)) {
        return std::nullopt;
    }
    logLine(fmt::format("unknown argument '{}'; --help tells what there is",
                        *firstUnknown(argc, argv)));
    return EX_USAGE;
}

} // namespace panewright
