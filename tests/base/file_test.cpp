#include "base/file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

namespace fs = std::filesystem;

class FileTest : public testing::Test {
protected:
    /// Whether it could be written.
    static bool write(const fs::path& file, const std::string& text) {
        return writeFileAtomically(file, Bytes(text.begin(), text.end())).ok();
    }

    const TemporaryFolder temporary_;
    const fs::path folder_ = temporary_.path();
    const fs::path file_ = folder_ / "file";
};

TEST_F(FileTest, TellsAMissingFileFromOneThatCannotBeRead) {
    fs::create_symlink("nowhere", folder_ / "dangling");
    setContent(file_, "x");
    const std::pair<fs::path, bool> cases[] = {{folder_ / "none", true},
                                               {folder_ / "dangling", true},
                                               {folder_, false},
                                               {file_ / "below", false},
                                               {"/dev/null", false}};
    for (const auto& [path, isMissing] : cases) {
        const auto content = readFile(path);
        ASSERT_FALSE(content) << path;
        EXPECT_EQ(content.error().isNoSuchFile, isMissing) << path;
    }
}

TEST_F(FileTest, WritesANewFileForTheUserOnlyAndKeepsTheModeOfAnOldOne) {
    EXPECT_TRUE(write(file_, "one"));
    EXPECT_EQ(contentOf(file_), "one");
    EXPECT_EQ(modeOf(file_), 0600);
    fs::permissions(file_, fs::perms(0644));
    EXPECT_TRUE(write(file_, ""));
    EXPECT_EQ(readFile(file_).value(), Bytes());
    EXPECT_EQ(modeOf(file_), 0644);
    EXPECT_EQ(countOfFiles(folder_), 1);
}

TEST_F(FileTest, WritesThroughLinksToTheirTarget) {
    fs::create_directory(folder_ / "real");
    fs::create_symlink("real/file", folder_ / "relative");
    fs::create_symlink(folder_ / "relative", folder_ / "absolute");
    for (const char* content : {"made", "replaced"}) { // the first time the link dangles
        EXPECT_TRUE(write(folder_ / "absolute", content));
        EXPECT_EQ(contentOf(folder_ / "real/file"), content);
    }
    EXPECT_TRUE(fs::is_symlink(folder_ / "absolute") && fs::is_symlink(folder_ / "relative"));
    fs::create_symlink("/dev/null", folder_ / "null");
    for (const fs::path& path : {folder_, folder_ / "null", folder_ / "missing/file"}) {
        EXPECT_FALSE(write(path, "x")) << path;
    }
}

} // namespace
} // namespace panewright
