#include "desktop/linux/spawned_program.h"

#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare sigemptyset
#include <spawn.h>
#include <unistd.h>

namespace panewright {

std::optional<pid_t> spawnProgram(std::vector<std::string> arguments, const SpawnOptions& options) {
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (auto& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);

    sigset_t none;
    sigset_t ignoredHere;
    sigemptyset(&none);
    sigemptyset(&ignoredHere);
    sigaddset(&ignoredHere, SIGPIPE);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &ignoredHere);
    const int session = options.inSessionOfItsOwn ? POSIX_SPAWN_SETSID : 0;
    posix_spawnattr_setflags(
        &attributes, static_cast<short>(POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | session));

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (options.standardOutput >= 0) {
        posix_spawn_file_actions_adddup2(&actions, options.standardOutput, STDOUT_FILENO);
    }
    if (!options.workingFolder.empty()) {
        posix_spawn_file_actions_addchdir_np(&actions, options.workingFolder.c_str());
    }
    pid_t child = 0;
    char* nothing = nullptr;
    const int error = posix_spawnp(&child, pointers[0], &actions, &attributes, pointers.data(),
                                   options.withoutEnvironment ? &nothing : environ);
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    return error == 0 ? std::optional(child) : std::nullopt;
}

} // namespace panewright
