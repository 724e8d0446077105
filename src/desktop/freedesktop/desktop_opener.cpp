#include "desktop/freedesktop/desktop_opener.h"

#include "desktop/linux/spawned_program.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace panewright {

void openWithDesktop(const std::string& addressOrPath) {
    // A child of a child has nobody here to be waited for by.
    const pid_t child = fork();
    if (child == 0) {
        _exit(spawnProgram({"xdg-open", addressOrPath}) ? 0 : 1);
    }
    while (child > 0 && waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

} // namespace panewright
