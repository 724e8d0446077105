#include "support/private_home.h"

namespace panewright::test {

PrivateHome::PrivateHome() {
    for (const char* folder : {"config", "cache", "data", "runtime"}) {
        std::filesystem::create_directory(folder_.path() / folder);
    }
    std::filesystem::permissions(folder_.path() / "runtime", std::filesystem::perms::owner_all);
}

std::filesystem::path PrivateHome::write(std::string_view name, const std::string& content) const {
    std::filesystem::path file = folder_.path() / name;
    setContent(file, content);
    return file;
}

Environment PrivateHome::environment() const {
    const char* path = std::getenv("PATH");
    const std::filesystem::path& home = folder_.path();
    return {
        {"PATH", path == nullptr ? "/usr/bin:/bin" : path},
        {"LANG", "C.UTF-8"},
        {"HOME", home},
        {"XDG_CONFIG_HOME", home / "config"},
        {"XDG_CACHE_HOME", home / "cache"},
        {"XDG_DATA_HOME", home / "data"},
        {"XDG_RUNTIME_DIR", home / "runtime"},
    };
}

} // namespace panewright::test
