#include "desktop/linux/crash_files.h"

#include <algorithm>
#include <system_error>

namespace panewright {

namespace fs = std::filesystem;

std::vector<fs::path> filesWithPrefix(const fs::path& folder, std::string_view prefix) {
    std::vector<fs::path> files;
    std::error_code error;
    for (auto entry = fs::directory_iterator(folder, error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (entry->path().filename().native().starts_with(prefix)) {
            files.push_back(entry->path());
        }
    }
    std::ranges::sort(files);
    return files;
}

void keepLastFiles(const fs::path& folder, std::string_view prefix, std::size_t count) {
    const auto files = filesWithPrefix(folder, prefix);
    for (std::size_t i = 0; i + count < files.size(); ++i) {
        std::error_code ignored;
        fs::remove(files[i], ignored);
    }
}

} // namespace panewright
