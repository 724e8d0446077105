#include "desktop/shared/bundle_moving_commands.h"

#include <fmt/format.h>

namespace panewright {

std::string shellQuoted(std::string_view text) {
    std::string quoted = "'";
    for (const char character : text) {
        quoted += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return quoted + "'";
}

std::string openAfterEndCommand(int processId, std::string_view bundle, bool isToolkitNewer) {
    const auto quoted = shellQuoted(bundle);
    const auto unmark = fmt::format("/usr/bin/xattr -d {}com.apple.quarantine {}",
                                    isToolkitNewer ? "-r " : "", quoted);
    return fmt::format("(while /bin/kill -0 {} >&/dev/null; do /bin/sleep 0.1; done; {}; "
                       "/usr/bin/open {}) &",
                       processId, unmark, quoted);
}

std::string ejectCommand(std::string_view device) {
    return fmt::format("(/bin/sleep 5 && /usr/bin/hdiutil detach {}) &", shellQuoted(device));
}

std::string isRunningCommand(std::string_view bundle) {
    return fmt::format("/bin/ps ax -o comm | /usr/bin/grep {}/ | /usr/bin/grep -v grep >/dev/null",
                       shellQuoted(bundle));
}

} // namespace panewright
