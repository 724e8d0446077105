#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

namespace panewright {

/// The files of the folder whose names begin so, sorted by name. None where the folder is missing.
std::vector<std::filesystem::path> filesWithPrefix(const std::filesystem::path& folder,
                                                   std::string_view prefix);

/// Deletes the first of these files until there are no more than `count`.
void keepLastFiles(const std::filesystem::path& folder, std::string_view prefix, std::size_t count);

} // namespace panewright
