#include "desktop/linux/xdg_folders.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace panewright {
namespace {

TEST(XdgFolders, FollowTheEnvironmentWhereItNamesAbsolutePaths) {
    using Path = std::optional<std::filesystem::path>;
    const struct {
        const char* home;
        const char* dataHome;
        Path expected;
    } cases[] = {{"/home/ada", nullptr, "/home/ada/.local/share"},
                 {"/home/ada", "", "/home/ada/.local/share"},
                 {"/home/ada", "data", "/home/ada/.local/share"},
                 {"/home/ada", "/data", "/data"},
                 {nullptr, "/data", "/data"},
                 {nullptr, nullptr, std::nullopt},
                 {"ada", nullptr, std::nullopt}};
    const auto set = [](const char* name, const char* value) {
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    };
    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "/";
    for (const auto& test : cases) {
        set("HOME", test.home);
        set("XDG_DATA_HOME", test.dataHome);
        EXPECT_EQ(xdgDataHome(), test.expected);
    }
    EXPECT_FALSE(XdgFolders().applicationSupportDirectory());
    set("HOME", home.c_str());
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(xdgConfigHome(), std::filesystem::path(home) / ".config");
}

} // namespace
} // namespace panewright
