#include "desktop/linux/xdg_folders.h"

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
                 {"ada", nullptr, std::nullopt},
                 {"/home/ada", "", "/home/ada/.local/share"},
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
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(xdgConfigHome(), "/home/ada/.config");
}

TEST(XdgFolders, AreCreatedOrSayWhyTheyCannotBe) {
    const TemporaryFolder temporary;
    const std::filesystem::path folder = temporary.path() / "not/yet/there";
    ::setenv("XDG_DATA_HOME", folder.c_str(), 1);
    const XdgFolders folders;
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(folders.applicationSupportDirectory().value(), folder);
        EXPECT_FALSE(folders.createDirectory(folder / "below"));
    }
    EXPECT_EQ(modeOf(folder / "below"), 0700);
    setContent(folder / "file", "");
    const auto error = folders.createDirectory(folder / "file/below");
    ASSERT_TRUE(error);
    EXPECT_NE(error->message, "");
}

} // namespace
} // namespace panewright
