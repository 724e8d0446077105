#include "installation/installed_file.h"

#include <system_error>

namespace panewright {
namespace {

/// The executable is in the prefix itself, as in a build folder, in "bin", or in
/// "libexec/panewright".
constexpr int kFoldersBelowPrefix = 2;

} // namespace

std::optional<std::filesystem::path> installedFile(const std::filesystem::path& executable,
                                                   const std::filesystem::path& name) {
    auto prefix = executable.parent_path();
    for (int i = 0; i <= kFoldersBelowPrefix; ++i, prefix = prefix.parent_path()) {
        const auto file = prefix / "share" / "panewright" / name;
        std::error_code ignored;
        if (std::filesystem::is_regular_file(file, ignored)) {
            return file;
        }
    }
    return std::nullopt;
}

} // namespace panewright
