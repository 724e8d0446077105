#pragma once

#include "platform/program_information.h"

#include <optional>

namespace panewright {

/// Prints what --help or --version ask for, on standard output as GNU programs do; the exit code to
/// end with then. Nil where neither is asked for and the program is to start.
std::optional<int> answerCommandLine(int argc, const char* const* argv,
                                     const ProgramInformation& program);

/// Logs the first argument that is left when the toolkit has taken its own, and tells how to get
/// help; the exit code to end with then (EX_USAGE, sysexits.h). Nil where none is left.
std::optional<int> refuseUnknownArguments(int argc, const char* const* argv);

} // namespace panewright
