// What the environment decides: folders, and who opens addresses.

#include "desktop/freedesktop/desktop_opener.h"
#include "desktop/freedesktop/xdg_folders.h"
#include "support/eventually.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

namespace panewright {
namespace {

TEST(XdgFolders, FollowTheEnvironmentWhereItNamesAbsolutePaths) {
    using Path = std::optional<std::filesystem::path>;
    const std::tuple<const char*, const char*, Path> cases[] = {
        {"/home/ada", "/data", "/data"},
        {"", "/data", "/data"},
        {"ada", "", std::nullopt},
        {"/home/ada", "data", "/home/ada/.local/share"}};
    for (const auto& [home, dataHome, expected] : cases) {
        setenv("HOME", home, 1);
        setenv("XDG_DATA_HOME", dataHome, 1);
        EXPECT_EQ(xdgDataHome(), expected);
    }
    const TemporaryFolder temporary;
    EXPECT_FALSE(XdgFolders().createDirectory(temporary.path() / "a/b"));
    EXPECT_EQ(modeOf(temporary.path() / "a"), 0700);
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(xdgConfigHome(), "/home/ada/.config");
}

TEST(UrlOpener, StartsTheBrowserWithPlainSignals) {
    const TemporaryFolder folder;
    const auto browser = folder.path() / "xdg-open";
    const auto heard = folder.path() / "heard";
    setContent(browser, R"sh(#!/bin/sh
set -- "$1" $(sed -n 's/^SigBlk:\s*//p; s/^SigIgn:\s*//p' /proc/$$/status)
echo "blocked $((0x$2)), SIGPIPE ignored $((0x$3 >> 12 & 1))" > "$0.signals"
echo "$1" > "${0%/*}/heard"
)sh");
    std::filesystem::permissions(browser, std::filesystem::perms::owner_all);
    const std::string path = std::getenv("PATH");
    setenv("PATH", (folder.path().string() + ":" + path).c_str(), 1);
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    openWithDesktop("http://example.org/a page?'#faq");
    EXPECT_TRUE(
        test::eventually([&] { return contentOf(heard) == "http://example.org/a page?'#faq\n"; }));
    EXPECT_EQ(contentOf(browser.string() + ".signals"), "blocked 0, SIGPIPE ignored 0\n");
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    std::signal(SIGPIPE, SIG_DFL);
    setenv("PATH", path.c_str(), 1);
}

} // namespace
} // namespace panewright
