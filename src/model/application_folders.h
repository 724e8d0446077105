#pragma once

#include "platform/standard_folders.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace panewright {

class ProgramInformation;

/// The folder of that name in the user's application-support folder, created when missing; or why
/// either is not to be had, in words for the log. Callable from any thread.
Result<std::filesystem::path, FolderError> applicationSupportFolder(const StandardFolders& folders,
                                                                    std::string_view dirName);

/// The same; nil for a failure, which is logged.
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
