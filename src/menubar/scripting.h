#pragma once

#include "base/registration.h"
#include "menubar/apply_window_state_command.h"
#include "menubar/window_states_for_scripts.h"

#include <optional>
#include <vector>

namespace panewright {

/// What scripts and other programs may ask of this one. Main thread only.
class ScriptingCommands {
public:
    virtual ~ScriptingCommands() = default;

    /// As ApplyWindowStateCommand does, whose keys the arguments have.
    virtual bool applyWindowState(const ScriptArguments& arguments) = 0;
    /// Nil when the store could not be read.
    virtual std::optional<std::vector<WindowStateForScripts>> listWindowStates() = 0;
    /// True when the window was given a frame.
    virtual bool moveToNextDisplay() = 0;

    // What opens windows, or ends the program.
    virtual void openMenu(bool isFlat) = 0;
    virtual void showSettings() = 0;
    virtual void saveWindow() = 0;
    virtual void quit() = 0;
};

/// Where scripts reach the program. Main thread only.
class ScriptingEndpoint {
public:
    virtual ~ScriptingEndpoint() = default;

    /// Lets scripts reach the commands, which must live until the registration is released. What
    /// came before waits where the system can keep it.
    virtual Registration serve(ScriptingCommands& commands) = 0;
};

} // namespace panewright
