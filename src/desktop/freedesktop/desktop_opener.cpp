#include "desktop/freedesktop/desktop_opener.h"

#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare sigemptyset
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace panewright {
namespace {

/// Starts the program as a shell would: what this process blocks or ignores is not its business.
int spawnWithPlainSignals(char* const* arguments) {
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigset_t ignoredHere;
    sigemptyset(&none);
    sigemptyset(&ignoredHere);
    sigaddset(&ignoredHere, SIGPIPE);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &ignoredHere);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    return posix_spawnp(&child, arguments[0], nullptr, &attributes, arguments, environ);
}

} // namespace

void openWithDesktop(const std::string& addressOrPath) {
    std::string command = "xdg-open";
    std::string address = addressOrPath;
    char* const arguments[] = {command.data(), address.data(), nullptr};
    // A child of a child has nobody here to be waited for by.
    const pid_t child = fork();
    if (child == 0) {
        _exit(spawnWithPlainSignals(arguments));
    }
    while (child > 0 && waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

} // namespace panewright
