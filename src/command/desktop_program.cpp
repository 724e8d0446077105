#include "command/desktop_program.h"

#include "command/status.h"
#include "installation/program_places.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace panewright::command {

int becomeDesktopProgram(char** argv) {
    const auto own = ownExecutable();
    if (const auto program = programOfCommand(own)) {
        execv(program->c_str(), argv);
        std::fprintf(stderr, "panewright: cannot start %s: %s\n", program->c_str(),
                     std::strerror(errno));
    } else {
        std::fprintf(stderr,
                     "panewright: the program that belongs to %s is missing; it lies in "
                     "libexec/panewright of the same prefix\n",
                     own.c_str());
    }
    return kStatusNoProgram;
}

} // namespace panewright::command
