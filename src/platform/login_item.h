#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

/// A program that starts when the user logs in.
struct LaunchAgent {
    std::string label;
    /// Absolute path.
    std::string program;
    /// Nil: none are named.
    std::optional<std::vector<std::string>> programArguments;
};

/// How the desktop wants to be told of such programs: by a file in a folder of the user. It only
/// says what stands where, and touches no file. Callable from any thread.
class LoginItemFormat {
public:
    virtual ~LoginItemFormat() = default;

    /// The folder, which need not exist. Empty when the user has none.
    virtual std::filesystem::path folder() const = 0;

    /// The name that the desktop wants for the agent file `name`.
    virtual std::string fileName(std::string_view name) const = 0;

    /// The content of the agent's file. A form without labels leaves the label out.
    virtual std::string encode(const LaunchAgent& agent) const = 0;

    /// The program that the content starts; nil when it is damaged or names none.
    virtual std::optional<std::string> programIn(std::string_view content) const = 0;

    /// Whether the content has been switched off, by the user or a settings program, without
    /// removing it.
    virtual bool isSwitchedOff(std::string_view content) const = 0;

    /// Whether the content lacks what `encode` writes now.
    virtual bool isOutdated(std::string_view content) const = 0;
};

} // namespace panewright
