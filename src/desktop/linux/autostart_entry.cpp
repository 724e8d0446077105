#include "desktop/linux/autostart_entry.h"

#include "desktop/linux/xdg_folders.h"

#include <fmt/format.h>

#include <sstream>

namespace panewright {
namespace {

constexpr std::string_view kGroup = "[Desktop Entry]";

/// An argument of Exec: always quoted, with what the shell would read inside quotes, and the codes
/// of fields, escaped. Backslashes count once more, as in every value (Desktop Entry Specification,
/// "The Exec key").
std::string quoted(const std::string& argument) {
    std::string text = "\"";
    for (const char character : argument) {
        if (character == '"' || character == '`' || character == '$') {
            text += R"(\\)";
        } else if (character == '\\') {
            text += R"(\\\)";
        } else if (character == '%') {
            text += '%';
        }
        text += character;
    }
    return text + '"';
}

/// A value without the escapes that every value may have.
std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == '\\' && i + 1 < value.size();
        const char character = value[i + (isEscape ? 1 : 0)];
        i += isEscape ? 1 : 0;
        text += isEscape && character == 's' ? ' ' : character;
    }
    return text;
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

/// The value of a key of the entry's own group; nil without it.
std::optional<std::string> valueOf(std::string_view content, std::string_view key) {
    std::istringstream lines{std::string(content)};
    bool isInGroup = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('[')) {
            isInGroup = line.starts_with(kGroup);
        } else if (isInGroup && line.starts_with(key)) {
            const auto equals = line.find_first_not_of(' ', key.size());
            if (equals != std::string::npos && line[equals] == '=') {
                const auto value = line.find_first_not_of(' ', equals + 1);
                return value == std::string::npos ? "" : line.substr(value);
            }
        }
    }
    return std::nullopt;
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
    std::string exec = quoted(agent.program);
    for (const auto& argument : agent.programArguments.value_or(std::vector<std::string>())) {
        exec += ' ' + quoted(argument);
    }
    return fmt::format("{}\n"
                       "Type=Application\n"
                       "Name=Panewright\n"
                       "Comment=Puts windows into saved states by shortcut\n"
                       "Exec={}\n"
                       "Terminal=false\n"
                       "X-GNOME-Autostart-enabled=true\n",
                       kGroup, exec);
}

std::optional<std::string> AutostartEntryFormat::programIn(std::string_view content) const {
    const auto exec = valueOf(content, "Exec");
    return exec ? firstArgument(unescaped(*exec)) : std::nullopt;
}

bool AutostartEntryFormat::isSwitchedOff(std::string_view content) const {
    return valueOf(content, "Hidden") == "true";
}

} // namespace panewright
