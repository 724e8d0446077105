#pragma once

#include "platform/program_information.h"

#include <optional>

namespace panewright {

/// Prints what --help or --version ask for, on standard output as GNU programs do; the exit code to
/// end with then. Nil where neither is asked for and the program is to start.
std::optional<int> answerCommandLine(int argc, const char* const* argv,
                                     const ProgramInformation& program);

/// Whether the program is to open nothing, as it is started by the session and not by the user.
bool isForBackground(int argc, const char* const* argv);

/// Logs the first argument that the program does not know, once the toolkit has taken its own, and
/// tells how to get help; the exit code to end with then (EX_USAGE, sysexits.h). Nil where there is
/// none.
std::optional<int> refuseUnknownArguments(int argc, const char* const* argv);

} // namespace panewright
