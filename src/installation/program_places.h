#pragma once

#include <filesystem>
#include <optional>

namespace panewright {

// Two executables of one name lie in a prefix. What people and scripts start is the command, in
// "bin", or in the prefix itself, as in a build folder or an unpacked copy. It starts the desktop
// program, in "libexec/panewright" (Filesystem Hierarchy Standard 3.0, 4.7).

/// The file that this process runs, without symbolic links (proc(5)); empty if that is not known.
std::filesystem::path ownExecutable();

/// The desktop program of that command's prefix. Nil if it is missing.
std::optional<std::filesystem::path> programOfCommand(const std::filesystem::path& command);

/// The command of that desktop program's prefix. Nil if it is missing.
std::optional<std::filesystem::path> commandOfProgram(const std::filesystem::path& program);

} // namespace panewright
