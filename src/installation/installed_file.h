#pragma once

#include <filesystem>
#include <optional>

namespace panewright {

/// A file that is installed with the program, such as "help/en/index.html", below
/// "share/panewright" of the prefix that the executable is in (Filesystem Hierarchy Standard): also
/// of an unpacked copy and of a build folder. Nil if it is missing.
std::optional<std::filesystem::path> installedFile(const std::filesystem::path& executable,
                                                   const std::filesystem::path& name);

} // namespace panewright
