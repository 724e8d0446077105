#pragma once

#include "command/request.h"

namespace panewright::command {

/// Does what is asked for, but for StartProgram: prints the result on standard output, or why there
/// is none on standard error. The status to end with (command/status.h).
int answer(const Request& request);

} // namespace panewright::command
