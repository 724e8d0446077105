#include "desktop/linux/linux_application_moving.h"
#include "desktop/linux/unpacked_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <filesystem>
#include <functional>

namespace panewright {
namespace {

namespace fs = std::filesystem;

/// A home with an unpacked program somewhere in it.
class LinuxApplicationMovingTest : public testing::Test {
protected:
    fs::path unpack(const std::string& place) {
        auto folder = home_ / place / "Panewright";
        fs::create_directories(folder / "libexec/panewright");
        setContent(folder / "libexec/panewright/panewright", "program");
        setContent(folder / "panewright-files.txt",
                   "libexec/panewright/panewright\npanewright-files.txt\n");
        return folder;
    }
    LinuxApplicationMoving movingFrom(const fs::path& folder, bool mayAsk = true) const {
        return LinuxApplicationMoving({folder / "libexec/panewright/panewright", home_,
                                       home_ / "Downloads", [](const fs::path&) { return false; },
                                       home_ / "mounts"},
                                      mayAsk);
    }

    TemporaryFolder root_;
    const fs::path home_ = fs::canonical(root_.path()) / "home";
};

TEST_F(LinuxApplicationMovingTest, MovesOnlyWhatWasUnpackedWhereNothingStays) {
    const auto downloaded = unpack("Downloads/new");
    EXPECT_EQ(movingFrom(downloaded).source(), downloaded);
    EXPECT_EQ(movingFrom(downloaded, false).source(), std::nullopt);
    fs::remove(downloaded / "panewright-files.txt");
    EXPECT_EQ(movingFrom(downloaded).source(), std::nullopt) << "built, or installed";
    EXPECT_EQ(movingFrom("/opt/Panewright").source(), std::nullopt);
    // The test's folder is a temporary one.
    EXPECT_NE(movingFrom(unpack("Documents")).source(), std::nullopt);

    const auto moving = movingFrom(downloaded);
    EXPECT_EQ(moving.applicationsFolder(), home_ / "Applications");
    EXPECT_TRUE(moving.isWritable(home_ / "Applications")) << "it can be made";
    EXPECT_FALSE(moving.isWritable(home_ / "Elsewhere"));
}

TEST_F(LinuxApplicationMovingTest, KnowsTheMediumOfAFolder) {
    const auto moving = movingFrom(unpack("Downloads"));
    EXPECT_EQ(moving.mediumOf("/media/me/STICK"), std::nullopt) << "there is no table";
    setContent(home_ / "mounts", "/dev/a / ext4 rw 0 0\n"
                                 "/dev/b /media/me/MY\\040STICK vfat rw 0 0\n"
                                 "/dev/c /media/me/MY\\040STICK/deep ext4 rw 0 0\n"
                                 "/dev/d /mediatheque ext4 rw 0 0\n");
    const struct {
        const char* folder;
        std::optional<std::string> medium;
    } cases[] = {
        {"/media/me/MY STICK", "/dev/b"},
        {"/media/me/MY STICK/programs", "/dev/b"},
        {"/media/me/MY STICK/deep/programs", "/dev/c"},
        {"/media/me", std::nullopt},
        {"/mediatheque/programs", std::nullopt},
    };
    for (const auto& [folder, medium] : cases) {
        EXPECT_EQ(moving.mediumOf(folder), medium) << folder;
    }
}

TEST_F(LinuxApplicationMovingTest, CopiesAllOrNothing) {
    const auto from = unpack("Downloads");
    fs::permissions(from / "libexec/panewright/panewright", fs::perms(0755));
    fs::create_symlink("libexec/panewright/panewright", from / "link");
    fs::permissions(from / "libexec", fs::perms(0555)); // as on a CD
    const auto to = home_ / "Applications" / "Panewright";
    EXPECT_EQ(copyFolder(from, to), std::nullopt);
    EXPECT_EQ(contentOf(to / "libexec/panewright/panewright"), "program");
    EXPECT_EQ(modeOf(to / "libexec/panewright/panewright"), 0755);
    EXPECT_TRUE(fs::is_symlink(to / "link"));
    EXPECT_EQ(modeOf(to / "libexec"), 0755);
    fs::permissions(from / "libexec", fs::perms(0755));

    EXPECT_NE(copyFolder(from, to), std::nullopt) << "something is there";
    EXPECT_NE(copyFolder(home_ / "none", home_ / "Applications/Other"), std::nullopt);
    EXPECT_EQ(std::distance(fs::directory_iterator(home_ / "Applications"), {}), 1)
        << "no halves are left";
}

TEST_F(LinuxApplicationMovingTest, OpensTheProgramInTheHomeFolder) {
    const auto folder = unpack("Applications");
    fs::create_directory(folder / "bin");
    setContent(folder / "bin/panewright", "#!/bin/sh\npwd > " + (home_ / "place").string());
    fs::permissions(folder / "bin/panewright", fs::perms(0755));
    movingFrom(folder).openAfterEnd(folder);
    EXPECT_GT(wait(nullptr), 0);
    EXPECT_EQ(contentOf(home_ / "place"), home_.string() + "\n")
        << "no medium, which it would hold";
}

TEST_F(LinuxApplicationMovingTest, DeletesAFolderOnlyIfItHoldsNothingElse) {
    const struct {
        const char* name;
        std::function<void(const fs::path&)> change;
        bool isGone;
    } cases[] = {
        {"as unpacked", [](const fs::path&) {}, true},
        {"a file less", [](const fs::path& folder) { fs::remove_all(folder / "libexec"); }, true},
        {"a user's file", [](const fs::path& folder) { setContent(folder / "notes", "mine"); },
         false},
        {"a user's empty folder",
         [](const fs::path& folder) { fs::create_directory(folder / "libexec/mine"); }, false},
        {"a user's link", [](const fs::path& folder) { fs::create_symlink("/", folder / "root"); },
         false},
        {"a folder in the place of a file",
         [](const fs::path& folder) {
             fs::remove(folder / "libexec/panewright/panewright");
             fs::create_directory(folder / "libexec/panewright/panewright");
             setContent(folder / "libexec/panewright/panewright/notes", "mine");
         },
         false},
        {"a list that names others",
         [](const fs::path& folder) {
             setContent(folder.parent_path() / "other", "mine");
             setContent(folder / "panewright-files.txt",
                        "../other\n/\n\n.\nlibexec/panewright/panewright\npanewright-files.txt");
         },
         true},
        {"no list", [](const fs::path& folder) { fs::remove(folder / "panewright-files.txt"); },
         false},
    };
    for (const auto& [name, change, isGone] : cases) {
        const auto folder = unpack("Downloads");
        change(folder);
        EXPECT_EQ(removeUnpackedFolder(folder).has_value(), !isGone) << name;
        EXPECT_EQ(fs::exists(folder), !isGone) << name;
        fs::remove_all(folder);
    }
    EXPECT_EQ(contentOf(home_ / "Downloads/other"), "mine");
}

} // namespace
} // namespace panewright
