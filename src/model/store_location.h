#pragma once

#include "model/application_folders.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace panewright {

/// The program's folder in the application-support folder, and the store's file in it.
inline constexpr std::string_view kStoreFolderName = "Panewright";
inline constexpr std::string_view kStoreFileName = "keyEvents.data";

/// The store's file, whose folder is looked up, and created, each time: it may come and go. Nil
/// when the folder is not to be had, which is logged.
inline std::optional<std::filesystem::path> storeFilePath(const StandardFolders& folders) {
    const auto folder = applicationSupportDirectoryURLWithDirName(folders, kStoreFolderName);
    return folder ? std::optional(*folder / kStoreFileName) : std::nullopt;
}

/// The same without a word in the log.
inline std::optional<std::filesystem::path> quietStoreFilePath(const StandardFolders& folders) {
    const auto folder = applicationSupportFolder(folders, kStoreFolderName);
    return folder ? std::optional(folder.value() / kStoreFileName) : std::nullopt;
}

} // namespace panewright
