#include "services/launch_agent_startup_item.h"

#include "desktop/linux/autostart_entry.h"
#include "services/launch_agent_format.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>

namespace panewright {
namespace {

constexpr const char* kName = "com.quillfen.Panewright.Agent.plist";
constexpr const char* kLabel = "com.quillfen.Panewright.Agent";

std::string contentOf(const std::filesystem::path& path) {
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

class LaunchAgentStartupItemTest : public testing::TestWithParam<const char*> {
protected:
    LaunchAgentStartupItemTest() {
        if (GetParam() == std::string("agents")) {
            format_ = std::make_unique<LaunchAgentFormat>(folder_.path());
        } else {
            setenv("XDG_CONFIG_HOME", (folder_.path() / "config").c_str(), 1);
            format_ = std::make_unique<AutostartEntryFormat>();
        }
    }

    LaunchAgentStartupItem itemFor(const std::string& program) const {
        return {*format_, program, kName, kLabel};
    }

    TemporaryFolder folder_;
    std::unique_ptr<LoginItemFormat> format_;
};

TEST_P(LaunchAgentStartupItemTest, IsInstalledWhileItsFileIsThere) {
    const auto item = itemFor("/opt/a b/panewright");
    EXPECT_TRUE(std::filesystem::is_directory(format_->folder()));
    EXPECT_FALSE(item.isInstalled());
    item.uninstall(); // harmless
    item.install();
    EXPECT_TRUE(item.isInstalled());
    EXPECT_EQ(format_->programIn(contentOf(*item.installedAgentPath())), "/opt/a b/panewright");
    item.uninstall();
    EXPECT_FALSE(std::filesystem::exists(*item.installedAgentPath()));
    std::ofstream(*item.installedAgentPath()) << "something else";
    EXPECT_TRUE(item.isInstalled());
}

TEST_P(LaunchAgentStartupItemTest, PointsAnInstalledItemAtThisCopy) {
    const auto current = itemFor("/new/panewright");
    const auto path = *current.installedAgentPath();
    current.updateExecutablePath(); // never installs by itself
    EXPECT_FALSE(current.isInstalled());
    itemFor("/old/panewright").install();
    current.updateExecutablePath();
    EXPECT_EQ(format_->programIn(contentOf(path)), "/new/panewright");
    std::ofstream(path) << "unrelated";
    current.updateExecutablePath();
    EXPECT_EQ(contentOf(path), "unrelated");
}

TEST_P(LaunchAgentStartupItemTest, KeepsProgramsWithUnusualNames) {
    for (const char* program : {"/a\"b", "/a'b", "/a\\b", "/a$b`c", "/100%f", "/a&<b>", "/ü x"}) {
        const auto item = itemFor(program);
        item.install();
        EXPECT_EQ(format_->programIn(contentOf(*item.installedAgentPath())), program);
    }
}

TEST_P(LaunchAgentStartupItemTest, CopiesAFileInTheOlderForm) {
    const auto file = folder_.path() / "other.plist";
    std::ofstream(file) << "content";
    installStartupLaunchdItem(*format_, file);
    EXPECT_TRUE(isStartupItemInstalled(*format_, file));
    EXPECT_EQ(contentOf(format_->folder() / "other.plist"), "content");
    uninstallStartupLaunchdItem(*format_, file);
    EXPECT_FALSE(isStartupItemInstalled(*format_, file));
}

INSTANTIATE_TEST_SUITE_P(Formats, LaunchAgentStartupItemTest,
                         testing::Values("agents", "autostart"),
                         [](const auto& format) { return std::string(format.param); });

TEST(LaunchAgentFormat, WritesAnXmlPropertyListInItsOrder) {
    const LaunchAgentFormat format("/home/u");
    EXPECT_EQ(format.folder(), "/home/u/Library/LaunchAgents");
    EXPECT_EQ(format.encode({kLabel, "/opt/panewright", std::vector<std::string>{"a", "b"}}),
              R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>Label</key>
	<string>com.quillfen.Panewright.Agent</string>
	<key>LimitLoadToSessionType</key>
	<string>Aqua</string>
	<key>RunAtLoad</key>
	<true/>
	<key>Program</key>
	<string>/opt/panewright</string>
	<key>ProgramArguments</key>
	<array>
		<string>a</string>
		<string>b</string>
	</array>
</dict>
</plist>
)");
}

TEST(AutostartEntryFormat, LeavesAnEntryAloneThatTheUserHasSwitchedOff) {
    TemporaryFolder folder;
    setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    const AutostartEntryFormat format;
    const LaunchAgentStartupItem item(format, "/new/panewright", kName, kLabel);
    EXPECT_EQ(item.installedAgentPath()->filename(), "com.quillfen.Panewright.Agent.desktop");
    const std::string off = "[Desktop Entry]\nExec=/old/panewright\nHidden = true\n";
    std::ofstream(*item.installedAgentPath()) << off;
    EXPECT_FALSE(item.isInstalled());
    item.updateExecutablePath();
    EXPECT_EQ(contentOf(*item.installedAgentPath()), off);
    item.install();
    EXPECT_TRUE(item.isInstalled());
    EXPECT_EQ(format.programIn("[Other]\nExec=/x\n"), std::nullopt);
    EXPECT_EQ(format.programIn("[Desktop Entry]\nExec=/plain/path --flag\n"), "/plain/path");
    EXPECT_EQ(format.programIn("[Desktop Entry]\nExec=\"/open\n"), std::nullopt);
}

} // namespace
} // namespace panewright
