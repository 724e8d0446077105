#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace panewright {

class ProgramInformation;
class StandardFolders;

/// The folder of that name in the user's application-support folder, created when missing. Nil when
/// either is not to be had, which is logged. Callable from any thread.
std::optional<std::filesystem::path>
applicationSupportDirectoryURLWithDirName(const StandardFolders& folders, std::string_view dirName);

/// The same for the folder that is named after the program's file or its identifier.
std::optional<std::filesystem::path>
applicationSupportDirectoryURLWithExecutableName(const StandardFolders& folders,
                                                 const ProgramInformation& program);
std::optional<std::filesystem::path>
applicationSupportDirectoryURLWithBundleId(const StandardFolders& folders,
                                           const ProgramInformation& program);

} // namespace panewright
