#include "model/application_folders.h"

#include "base/log.h"
#include "platform/program_information.h"
#include "platform/standard_folders.h"

#include <fmt/format.h>

namespace panewright {

Result<std::filesystem::path, FolderError> applicationSupportFolder(const StandardFolders& folders,
                                                                    std::string_view dirName) {
    const auto support = folders.applicationSupportDirectory();
    if (!support) {
        return FolderError{fmt::format("Error getting application support directory: {}",
                                       support.error().message)};
    }
    std::filesystem::path directory = support.value() / dirName;
    if (const auto error = folders.createDirectory(directory)) {
        // The wording is kept as it has always been, for whoever searches logs for it.
        return FolderError{
            fmt::format("Error creating application suppor directory: {}", error->message)};
    }
    return directory;
}

std::optional<std::filesystem::path>
applicationSupportDirectoryURLWithDirName(const StandardFolders& folders,
                                          std::string_view dirName) {
    auto directory = applicationSupportFolder(folders, dirName);
    if (!directory) {
        logLine(directory.error().message);
        return std::nullopt;
    }
    return std::move(directory).value();
}

std::optional<std::filesystem::path>
applicationSupportDirectoryURLWithExecutableName(const StandardFolders& folders,
                                                 const ProgramInformation& program) {
    return applicationSupportDirectoryURLWithDirName(folders, program.executableName());
}

std::optional<std::filesystem::path>
applicationSupportDirectoryURLWithBundleId(const StandardFolders& folders,
                                           const ProgramInformation& program) {
    return applicationSupportDirectoryURLWithDirName(folders, program.bundleIdentifier());
}

} // namespace panewright
