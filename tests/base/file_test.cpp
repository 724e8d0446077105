#include "base/file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

namespace fs = std::filesystem;

Bytes bytes(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

TEST(File, TellsAMissingFileFromOneThatCannotBeRead) {
    const TemporaryFolder folder;
    EXPECT_TRUE(readFile(folder.path() / "none").error().isNoSuchFile);
    fs::create_symlink("nowhere", folder.path() / "dangling");
    EXPECT_TRUE(readFile(folder.path() / "dangling").error().isNoSuchFile);

    setContent(folder.path() / "file", "x");
    for (const fs::path& path :
         {folder.path(), folder.path() / "file" / "below", fs::path("/dev/null")}) {
        const auto content = readFile(path);
        ASSERT_FALSE(content) << path;
        EXPECT_FALSE(content.error().isNoSuchFile) << path;
        EXPECT_NE(content.error().message, "") << path;
    }
}

TEST(File, WritesANewFileForTheUserOnlyAndKeepsTheModeOfAnOldOne) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "file";
    EXPECT_FALSE(writeFileAtomically(file, bytes("one")));
    EXPECT_EQ(contentOf(file), "one");
    EXPECT_EQ(modeOf(file), 0600);

    fs::permissions(file, fs::perms(0644));
    EXPECT_FALSE(writeFileAtomically(file, bytes("")));
    EXPECT_EQ(readFile(file).value(), Bytes());
    EXPECT_EQ(modeOf(file), 0644);
}

TEST(File, WritesThroughLinksToTheirTarget) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "real");
    fs::create_symlink("real/file", folder.path() / "relative");
    fs::create_symlink(folder.path() / "relative", folder.path() / "absolute");
    for (const char* content : {"made", "replaced"}) { // the first time the link dangles
        EXPECT_FALSE(writeFileAtomically(folder.path() / "absolute", bytes(content)));
        EXPECT_EQ(contentOf(folder.path() / "real/file"), content);
    }
    EXPECT_TRUE(fs::is_symlink(folder.path() / "absolute"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "relative"));
}

TEST(File, LeavesWhatIsNoRegularFileAlone) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "folder");
    fs::create_symlink("/dev/null", folder.path() / "null");
    EXPECT_TRUE(writeFileAtomically(folder.path() / "folder", bytes("x")));
    EXPECT_TRUE(writeFileAtomically(folder.path() / "null", bytes("x")));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_TRUE(writeFileAtomically(folder.path() / "missing/file", bytes("x")));
}

TEST(File, TakesAwayWhatACrashLeftBehind) {
    const TemporaryFolder folder;
    setContent(folder.path() / ".file.new", "half of it");
    EXPECT_FALSE(writeFileAtomically(folder.path() / "file", bytes("whole")));
    EXPECT_EQ(contentOf(folder.path() / "file"), "whole");
    EXPECT_EQ(countOfNames(folder.path(), ""), 1);
}

TEST(File, CreatesMissingFoldersForTheUserOnly) {
    const TemporaryFolder folder;
    EXPECT_FALSE(createFolders(folder.path() / "a/b"));
    EXPECT_FALSE(createFolders(folder.path() / "a/b"));
    EXPECT_EQ(modeOf(folder.path() / "a"), 0700);
    setContent(folder.path() / "file", "");
    EXPECT_TRUE(createFolders(folder.path() / "file/below"));
}

} // namespace
} // namespace panewright
