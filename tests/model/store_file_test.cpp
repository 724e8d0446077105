#include "model/store_file.h"

#include "support/store_fixture.h"

namespace panewright {
namespace {

class StoreFileTest : public StoreFixture {
protected:
    void SetUp() override { std::filesystem::create_directories(folder_); }
};

Bytes bytes(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

TEST_F(StoreFileTest, SetsAsideWhatItHasNotRead) {
    setContent(file_, "not understood");
    setContent(folder_ / "keyEvents.data.unreadable-1", "an earlier one");
    StoreFile file(folders_);
    ASSERT_TRUE(file.read());
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_FALSE(file.write(bytes("newer")));
    EXPECT_EQ(contentOf(file_), "newer");
    EXPECT_EQ(contentOf(folder_ / "keyEvents.data.unreadable-1"), "an earlier one");
    EXPECT_EQ(contentOf(folder_ / "keyEvents.data.unreadable-2"), "not understood");
    EXPECT_EQ(countOfNames(folder_, ""), 3);
}

TEST_F(StoreFileTest, SetsAsideAFileThatAppearedAfterTheLook) {
    StoreFile file(folders_);
    EXPECT_TRUE(file.read().error().isNoSuchFile);
    setContent(file_, "restored from a backup");
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_EQ(contentOf(folder_ / "keyEvents.data.unreadable-1"), "restored from a backup");
}

TEST_F(StoreFileTest, SetsAsideAFolderInItsPlace) {
    std::filesystem::create_directories(file_ / "content");
    StoreFile file(folders_);
    EXPECT_FALSE(file.read().error().isNoSuchFile);
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_EQ(contentOf(file_), "new");
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "keyEvents.data.unreadable-1/content"));
}

TEST_F(StoreFileTest, ReplacesWhatWasAcceptedAndKeepsItsMode) {
    setContent(file_, "understood");
    std::filesystem::permissions(file_, std::filesystem::perms(0640));
    StoreFile file(folders_);
    ASSERT_TRUE(file.read());
    file.accept();
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_EQ(contentOf(file_), "new");
    EXPECT_EQ(modeOf(file_), 0640);
    EXPECT_EQ(countOfNames(folder_, ""), 1);
}

TEST_F(StoreFileTest, IsWrittenThroughALinkAlsoWhenSettingAside) {
    setContent(temporary_.path() / "synced", "not understood");
    std::filesystem::create_symlink("../synced", file_);
    StoreFile file(folders_);
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_TRUE(std::filesystem::is_symlink(file_));
    EXPECT_EQ(contentOf(temporary_.path() / "synced"), "new");
    EXPECT_EQ(contentOf(temporary_.path() / "synced.unreadable-1"), "not understood");
}

} // namespace
} // namespace panewright
