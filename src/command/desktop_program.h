#pragma once

namespace panewright::command {

/// Becomes the desktop program of this command's prefix: the same process, with the same arguments
/// and the same name in argv[0]. Returns only if that fails, with the status to end with
/// (kStatusNoProgram), once it has said why on standard error.
int becomeDesktopProgram(char** argv);

} // namespace panewright::command
