#include "support/temporary_folder.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace panewright::test {

TemporaryFolder::TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "panewright-test-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder: " + name);
    }
    path_ = name;
    for (const char* folder : {"config", "cache", "data", "runtime"}) {
        std::filesystem::create_directory(path_ / folder);
    }
    std::filesystem::permissions(path_ / "runtime", std::filesystem::perms::owner_all);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TemporaryFolder::write(std::string_view name,
                                             std::string_view content) const {
    std::filesystem::path file = path_ / name;
    std::ofstream(file) << content;
    return file;
}

Environment TemporaryFolder::environment() const {
    const char* path = std::getenv("PATH");
    return {
        {"PATH", path == nullptr ? "/usr/bin:/bin" : path},
        {"LANG", "C.UTF-8"},
        {"HOME", path_},
        {"XDG_CONFIG_HOME", path_ / "config"},
        {"XDG_CACHE_HOME", path_ / "cache"},
        {"XDG_DATA_HOME", path_ / "data"},
        {"XDG_RUNTIME_DIR", path_ / "runtime"},
    };
}

} // namespace panewright::test
