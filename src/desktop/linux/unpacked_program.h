#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace panewright {

/// The folder that this program was unpacked into, as the list of its files in it shows: the one
/// that "libexec/panewright" of the executable lies in. Nil for a program that was installed in
/// another way, or built.
std::optional<std::filesystem::path> unpackedFolderOf(const std::filesystem::path& executable);

/// Copies the folder beside its destination and renames it then: others see all of it or nothing.
/// The folder of the destination is made if it is missing. Nil when all went well, else why not.
std::optional<std::string> copyFolder(const std::filesystem::path& from,
                                      const std::filesystem::path& to);

/// Deletes an unpacked folder, unless it holds anything that its list does not name. Nil when it is
/// gone, else why not.
std::optional<std::string> removeUnpackedFolder(const std::filesystem::path& folder);

} // namespace panewright
