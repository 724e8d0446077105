#pragma once

#include "support/temporary_folder.h"

#include <map>
#include <string>

namespace panewright::test {

using Environment = std::map<std::string, std::string>;

/// A user who has nothing but a folder with settings of window managers and panels, which goes with
/// this object. What the machine has of fonts, and of settings for all users, does not count.
class PrivateHome {
public:
    PrivateHome() {
        for (const char* folder : {"cache", "runtime"}) {
            std::filesystem::create_directory(folder_.path() / folder);
        }
        constexpr auto kRecursive = std::filesystem::copy_options::recursive;
        std::filesystem::copy(CONFIG_HOME, folder_.path() / "config", kRecursive);
        std::filesystem::copy(DATA_HOME, folder_.path() / "data", kRecursive);
        std::filesystem::permissions(folder_.path() / "runtime", std::filesystem::perms::owner_all);
    }

    /// PATH, a plain locale, HOME and the XDG folders inside the folder, and one family of fonts.
    Environment environment() const {
        const char* path = std::getenv("PATH");
        const std::filesystem::path& home = folder_.path();
        return {{"PATH", path == nullptr ? "/usr/bin:/bin" : path},
                {"LANG", "C.UTF-8"},
                {"HOME", home},
                {"XDG_CONFIG_HOME", home / "config"},
                {"XDG_CONFIG_DIRS", home / "none"},
                {"XDG_CACHE_HOME", home / "cache"},
                {"XDG_DATA_HOME", home / "data"},
                {"XDG_RUNTIME_DIR", home / "runtime"},
                {"FONTCONFIG_FILE", home / "config/fonts.conf"}};
    }

private:
    TemporaryFolder folder_;
};

} // namespace panewright::test
