#pragma once

#include "menubar/scripting.h"

namespace panewright {

/// Lets a test be the script.
class MemoryScripting : public ScriptingEndpoint {
public:
    Registration serve(ScriptingCommands& served) override {
        commands = &served;
        return Registration([this] { commands = nullptr; });
    }

    /// Null while nobody serves.
    ScriptingCommands* commands = nullptr;
};

} // namespace panewright
