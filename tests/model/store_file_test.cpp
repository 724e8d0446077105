#include "model/store_file.h"

#include "model/application_folders.h"
#include "model/store_lock.h"
#include "support/store_fixture.h"

namespace panewright {
namespace {

class StoreFileTest : public StoreFixture {};

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
    EXPECT_EQ(countOfFiles(folder_), 3);
}

TEST_F(StoreFileTest, SetsAsideAFolderInItsPlaceAndAFileThatAppearedAfterTheLook) {
    std::filesystem::create_directories(file_ / "content");
    StoreFile file(folders_);
    EXPECT_FALSE(file.read().error().isNoSuchFile);
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_EQ(contentOf(file_), "new");
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "keyEvents.data.unreadable-1/content"));

    std::filesystem::remove(file_);
    EXPECT_TRUE(file.read().error().isNoSuchFile);
    setContent(file_, "restored from a backup");
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_EQ(contentOf(folder_ / "keyEvents.data.unreadable-2"), "restored from a backup");
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
    EXPECT_EQ(countOfFiles(folder_), 1);
}

TEST_F(StoreFileTest, IsWrittenThroughALinkAlsoWhenSettingAside) {
    setContent(temporary_.path() / "synced", "not understood");
    std::filesystem::create_directories(folder_);
    std::filesystem::create_symlink("../synced", file_);
    StoreFile file(folders_);
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_TRUE(std::filesystem::is_symlink(file_));
    EXPECT_EQ(contentOf(temporary_.path() / "synced"), "new");
    EXPECT_EQ(contentOf(temporary_.path() / "synced.unreadable-1"), "not understood");
}

TEST_F(StoreFileTest, HasALockForOneAtATime) {
    using Outcome = StoreLock::Outcome;
    CapturedLog log;
    {
        const StoreLock first(folders_);
        EXPECT_EQ(first.outcome(), Outcome::kHeld);
        EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kHeldByAnother);
    }
    const auto lock = folder_ / "keyEvents.data.lock";
    EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kHeld);
    EXPECT_EQ(modeOf(lock), 0600);
    std::filesystem::remove(lock);
    std::filesystem::create_directory(lock);
    EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kUnavailable);
    EXPECT_EQ(log.take().size(), 1U);
}

TEST_F(StoreFileTest, LogsWhyThereIsNoFolder) {
    CapturedLog log;
    setContent(folder_, "a file where the folder should be");
    EXPECT_EQ(applicationSupportDirectoryURLWithDirName(folders_, "Panewright"), std::nullopt);
    EXPECT_THAT(log.take(), testing::ElementsAre(testing::StartsWith(
                                "Error creating application suppor directory: ")));
}

} // namespace
} // namespace panewright
