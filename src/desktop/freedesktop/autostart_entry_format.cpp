#include "desktop/freedesktop/autostart_entry_format.h"

#include "desktop/freedesktop/desktop_entry_text.h"
#include "desktop/freedesktop/xdg_folders.h"

#include <fmt/format.h>

namespace panewright {
namespace {

/// An argument of Exec: always quoted, with what the shell would read inside quotes, and the codes
/// of fields, escaped (Desktop Entry Specification, "The Exec key").
std::string quoted(const std::string& argument) {
    std::string text = "\"";
    for (const char character : argument) {
        if (std::string_view("\"`$\\").find(character) != std::string_view::npos) {
            text += '\\';
        } else if (character == '%') {
            text += '%';
        }
        text += character;
    }
    return text + '"';
}

/// The first argument of an Exec line; nil without one, or when its quotes do not close.
std::optional<std::string> firstArgument(std::string_view exec) {
    const bool isQuoted = exec.starts_with('"');
    std::string argument;
    for (std::size_t i = isQuoted ? 1 : 0; i < exec.size(); ++i) {
        if (exec[i] == (isQuoted ? '"' : ' ')) {
            return argument;
        }
        const bool isEscaped = (isQuoted && exec[i] == '\\') || exec[i] == '%';
        i += isEscaped && i + 1 < exec.size() ? 1 : 0;
        argument += exec[i];
    }
    return isQuoted || argument.empty() ? std::nullopt : std::optional(argument);
}

} // namespace

std::filesystem::path AutostartEntryFormat::folder() const {
    const auto config = xdgConfigHome();
    return config ? *config / "autostart" : std::filesystem::path();
}

std::string AutostartEntryFormat::fileName(std::string_view name) const {
    return std::filesystem::path(name).replace_extension(".desktop").string();
}

std::string AutostartEntryFormat::encode(const LaunchAgent& agent) const {
    // The session starts it, not the user: nothing is to open if it runs already.
    std::string exec = quoted(agent.program) + " --background";
    for (const auto& argument : agent.programArguments.value_or(std::vector<std::string>())) {
        exec += ' ' + quoted(argument);
    }
    return fmt::format("[Desktop Entry]\n"
                       "Type=Application\n"
                       "Name=Panewright\n"
                       "Comment=Puts windows into saved states by shortcut\n"
                       "TryExec={}\n"
                       "Exec={}\n"
                       "Terminal=false\n"
                       "X-GNOME-Autostart-enabled=true\n",
                       escaped(agent.program), escaped(exec));
}

std::optional<std::string> AutostartEntryFormat::programIn(std::string_view content) const {
    const auto keys = desktopEntryKeys(content);
    const auto exec = keys.find("Exec");
    return exec == keys.end() ? std::nullopt : firstArgument(unescaped(exec->second));
}

bool AutostartEntryFormat::isSwitchedOff(std::string_view content) const {
    const auto keys = desktopEntryKeys(content);
    const auto hidden = keys.find("Hidden");
    return hidden != keys.end() && hidden->second == "true";
}

bool AutostartEntryFormat::isOutdated(std::string_view content) const {
    return !desktopEntryKeys(content).contains("TryExec");
}

} // namespace panewright
