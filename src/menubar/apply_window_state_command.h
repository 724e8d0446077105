#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace panewright {

class StatusItemController;

/// The arguments of a scripting command by their keys. An empty text is a value.
using ScriptArguments = std::map<std::string, std::string, std::less<>>;

// The keys of the arguments of ApplyWindowStateCommand.
inline constexpr std::string_view kWindowStateNameArgument = "WindowStateName";
inline constexpr std::string_view kApplicationNameArgument = "ApplicationName"; // may be missing

/// The scripting command that puts the active window into the state of a name.
class ApplyWindowStateCommand {
public:
    /// The controller is null before launch has finished.
    ApplyWindowStateCommand(ScriptArguments evaluatedArguments,
                            std::shared_ptr<StatusItemController> controller);

    /// True when there is such a state, also if the window could not be placed.
    bool performDefaultImplementation() const;

private:
    ScriptArguments evaluatedArguments_;
    std::shared_ptr<StatusItemController> controller_;
};

} // namespace panewright
