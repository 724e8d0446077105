#include "desktop/freedesktop/xdg_folders.h"

#include "support/temporary_folder.h"

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
    } cases[] = {{"/home/ada", "/data", "/data"},
                 {nullptr, "/data", "/data"},
                 {nullptr, nullptr, std::nullopt},
                 {"ada", "", std::nullopt},
                 {"/home/ada", "data", "/home/ada/.local/share"},
                 {"/home/ada", nullptr, "/home/ada/.local/share"}};
    const auto set = [](const char* name, const char* value) {
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    };
    for (const auto& [home, dataHome, expected] : cases) {
        set("HOME", home);
        set("XDG_DATA_HOME", dataHome);
        EXPECT_EQ(xdgDataHome(), expected);
    }
    const TemporaryFolder temporary;
    EXPECT_FALSE(XdgFolders().createDirectory(temporary.path() / "a/b"));
    EXPECT_EQ(modeOf(temporary.path() / "a"), 0700);
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(xdgConfigHome(), "/home/ada/.config");
}

} // namespace
} // namespace panewright
