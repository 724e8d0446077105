#include "desktop/freedesktop/autostart_entry_format.h"
#include "desktop/memory/memory_user_defaults.h"
#include "services/defaults.h"
#include "services/launch_agent_format.h"
#include "services/launch_agent_startup_item.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace panewright {
namespace {

using namespace std::string_literals;

TEST(Defaults, ReadEveryKindOfValueAsBooleanAndInteger) {
    constexpr auto kMax = std::numeric_limits<std::int64_t>::max();
    const std::tuple<DefaultsValue, bool, std::int64_t> cases[] = {
        {true, true, 1},         {0.5, true, 0},
        {1e300, true, kMax},     {" -7.9 points"s, true, -7},
        {"YES"s, true, 0},       {"no"s, false, 0},
        {Bytes{1, 2}, false, 0}, {"99999999999999999999"s, true, kMax},
    };
    MemoryUserDefaults store;
    Defaults defaults(store);
    for (const auto& [value, asBool, asInteger] : cases) {
        defaults.setObject("key", value);
        EXPECT_EQ(defaults.boolForKey("key"), asBool) << testing::PrintToString(value);
        EXPECT_EQ(defaults.integerForKey("key"), asInteger) << testing::PrintToString(value);
    }
    defaults.removeObjectForKey("key");
    defaults.registerDefaults({{"key", std::int64_t{4}}});
    EXPECT_EQ(defaults.integerForKey("key"), 4);
    EXPECT_EQ(store.objectForKey("key"), std::nullopt);
}

TEST(LoginItem, IsInstalledWhileItsFileIsThereAndPointedAtThisCopyUnlessItIsNotOurs) {
    const TemporaryFolder folder;
    setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    const LaunchAgentFormat agents(folder.path());
    const AutostartEntryFormat autostart;
    for (const LoginItemFormat* format :
         std::initializer_list<const LoginItemFormat*>{&agents, &autostart}) {
        const auto itemFor = [&](const std::string& program) {
            return LaunchAgentStartupItem(*format, program, "com.quillfen.Agent.plist", "label");
        };
        const auto current = itemFor("/new/panewright");
        const auto programInFile = [&] {
            return format->programIn(contentOf(*current.installedAgentPath()));
        };
        for (const char* program : {"/opt/a b/panewright", "/a\"b", "/a'b", "/a\\b", "/a$b`c",
                                    "/100%f", "/a&<b>", "/ü x"}) {
            current.updateExecutablePath(); // never installs by itself
            EXPECT_FALSE(current.isInstalled());
            itemFor(program).install();
            EXPECT_EQ(programInFile(), program);
            current.updateExecutablePath();
            EXPECT_EQ(programInFile(), "/new/panewright");
            current.uninstall();
        }
        setContent(*current.installedAgentPath(), "unrelated");
        current.updateExecutablePath();
        EXPECT_EQ(contentOf(*current.installedAgentPath()), "unrelated");
    }
}

TEST(AutostartEntryFormat, LeavesAnEntryAloneThatTheUserHasSwitchedOff) {
    const TemporaryFolder folder;
    setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    const AutostartEntryFormat format;
    const LaunchAgentStartupItem item(format, "/new/panewright", "com.quillfen.plist", "label");
    const auto path = *item.installedAgentPath();
    EXPECT_EQ(path, folder.path() / "autostart/com.quillfen.desktop");
    const std::string off = "[Desktop Entry]\nExec=/old/panewright\nHidden = true\n";
    setContent(path, off);
    EXPECT_FALSE(item.isInstalled());
    item.updateExecutablePath();
    EXPECT_EQ(contentOf(path), off);
    item.install();
    EXPECT_TRUE(item.isInstalled());
    EXPECT_FALSE(format.isOutdated(contentOf(path)));
    setContent(path, "[Desktop Entry]\nExec=/new/panewright\n");
    item.updateExecutablePath();
    EXPECT_FALSE(format.isOutdated(contentOf(path)));
    EXPECT_THAT(format.encode({"", R"(/a b\c"%$d)", std::nullopt}),
                testing::HasSubstr("TryExec=/a b\\\\c\"%$d\n"
                                   "Exec=\"/a b\\\\\\\\c\\\\\"%%\\\\$d\" --background\n"));
    EXPECT_EQ(format.programIn("[Other]\nExec=/x\n"), std::nullopt);
    EXPECT_EQ(format.programIn("[Desktop Entry]\nExec=/plain/path --flag\n"), "/plain/path");
    EXPECT_EQ(format.programIn("[Desktop Entry]\nExec=\"/open\n"), std::nullopt);
}

TEST(LaunchAgentFormat, WritesAnXmlPropertyListInItsOrder) {
    const LaunchAgentFormat format("/home/u");
    EXPECT_EQ(format.folder(), "/home/u/Library/LaunchAgents");
    const auto encoded =
        format.encode({"com.quillfen", "/opt/panewright", std::vector{"a"s, "b"s}});
    EXPECT_EQ(encoded.substr(encoded.find("<dict>")),
              "<dict>\n"
              "\t<key>Label</key>\n\t<string>com.quillfen</string>\n"
              "\t<key>LimitLoadToSessionType</key>\n\t<string>Aqua</string>\n"
              "\t<key>RunAtLoad</key>\n\t<true/>\n"
              "\t<key>Program</key>\n\t<string>/opt/panewright</string>\n"
              "\t<key>ProgramArguments</key>\n"
              "\t<array>\n\t\t<string>a</string>\n\t\t<string>b</string>\n\t</array>\n"
              "</dict>\n</plist>\n");
}

} // namespace
} // namespace panewright
