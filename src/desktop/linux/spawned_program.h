#pragma once

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace panewright {

struct SpawnOptions {
    /// Outlives this process and its terminal (setsid(2)).
    bool inSessionOfItsOwn = false;
    /// Sees no variable of ours.
    bool withoutEnvironment = false;
    /// What its standard output becomes; -1 leaves it ours.
    int standardOutput = -1;
    /// Where it works; empty for where we do.
    std::string workingFolder = {};
};

/// Starts a program as a shell would: what this process blocks or ignores is not its business. The
/// first argument is the program, a path or a name in $PATH. Nil if that fails; otherwise somebody
/// must wait for the child.
std::optional<pid_t> spawnProgram(std::vector<std::string> arguments,
                                  const SpawnOptions& options = {});

} // namespace panewright
