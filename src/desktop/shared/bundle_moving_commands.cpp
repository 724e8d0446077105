#include "desktop/shared/bundle_moving_commands.h"

#include <fmt/format.h>

#include <utility>

namespace panewright {
namespace {

constexpr const char* kImageTool = "/usr/bin/hdiutil";
constexpr const char* kOpeningTool = "/usr/bin/open";

CommandLine shellCommand(std::string line) {
    return {"/bin/sh", "-c", std::move(line)};
}

} // namespace

std::string shellQuoted(std::string_view text) {
    std::string quoted = "'";
    for (const char character : text) {
        quoted += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return quoted + "'";
}

CommandLine listImagesCommand() {
    return {kImageTool, "info", "-plist"};
}

CommandLine removeCommand(const std::filesystem::path& bundle) {
    return {"/bin/rm", "-rf", bundle};
}

CommandLine copyCommand(const std::filesystem::path& from, const std::filesystem::path& to) {
    return {"/bin/cp", "-pR", from, to};
}

CommandLine isRunningCommand(const std::filesystem::path& bundle) {
    return shellCommand(
        fmt::format("/bin/ps ax -o comm | /usr/bin/grep {}/ | /usr/bin/grep -v grep >/dev/null",
                    shellQuoted(bundle.native())));
}

CommandLine openCommand(const std::filesystem::path& bundle) {
    return {kOpeningTool, bundle};
}

CommandLine openAfterEndCommand(int processId, const std::filesystem::path& bundle,
                                bool isToolkitNewer) {
    const auto quoted = shellQuoted(bundle.native());
    const auto unmark = fmt::format("/usr/bin/xattr -d {}com.apple.quarantine {}",
                                    isToolkitNewer ? "-r " : "", quoted);
    return shellCommand(
        fmt::format("(while /bin/kill -0 {} >&/dev/null; do /bin/sleep 0.1; done; {}; {} {}) &",
                    processId, unmark, kOpeningTool, quoted));
}

CommandLine ejectCommand(std::string_view device) {
    return shellCommand(
        fmt::format("(/bin/sleep 5 && {} detach {}) &", kImageTool, shellQuoted(device)));
}

} // namespace panewright
