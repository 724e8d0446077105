#include "model/store_file.h"

#include "model/gzip.h"
#include "model/store_lock.h"
#include "support/store_fixture.h"

#include <zlib.h>

namespace panewright {
namespace {

Bytes noise(std::size_t size) {
    Bytes data(size);
    std::uint32_t state = 1;
    for (auto& byte : data) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<std::uint8_t>(state >> 24);
    }
    return data;
}

constexpr std::size_t kLimit = std::size_t{1} << 20;

TEST(Gzip, GivesBackDataOfAnySize) {
    // Around the 16384 bytes that the output grows by, and data that does not get smaller.
    for (const std::size_t size : {1, 16360, 16384, 16385, 100000}) {
        for (const Bytes& data : {Bytes(size, 'a'), noise(size)}) {
            EXPECT_EQ(gunzippedData(*gzippedData(data), kLimit), data) << size;
        }
    }
    const Bytes plain(1000, 'a');
    EXPECT_EQ((*gzippedData(plain, 9))[8], 2) << "says that it is the best compression (RFC 1952)";
    Bytes zlib(100);
    uLongf length = zlib.size();
    ASSERT_EQ(compress(zlib.data(), &length, plain.data(), plain.size()), Z_OK);
    zlib.resize(length);
    EXPECT_EQ(gunzippedData(zlib, kLimit), plain);
}

TEST(Gzip, GivesNilForWhatIsEmptyOrNotCompressedOrNotWholeOrWithoutEnd) {
    const Bytes whole = *gzippedData(noise(1000));
    Bytes damaged = whole;
    damaged[500] ^= 1;
    for (const Bytes& data : {Bytes(), bytes("bplist00 not compressed"), damaged,
                              Bytes(whole.begin(), whole.end() - 1), Bytes(1, 0x1F)}) {
        EXPECT_EQ(gunzippedData(data, kLimit), std::nullopt) << data.size();
    }
    EXPECT_EQ(gzippedData({}), std::nullopt);
    const auto largest = gzippedData(Bytes(kLimit, 0), 9);
    EXPECT_EQ(gunzippedData(*largest, kLimit)->size(), kLimit);
    EXPECT_EQ(gunzippedData(*gzippedData(Bytes(kLimit + 1, 0), 9), kLimit), std::nullopt);
}

class StoreFileTest : public StoreFixture {};

TEST_F(StoreFileTest, SetsAsideWhatItHasNotReadBesideTheTargetOfALink) {
    const auto target = temporary_.path() / "synced";
    setContent(target, "not understood");
    setContent(temporary_.path() / "synced.unreadable-1", "an earlier one");
    std::filesystem::create_directories(folder_);
    std::filesystem::create_symlink("../synced", file_);
    StoreFile file(folders_, lock_);
    ASSERT_TRUE(file.read());
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_FALSE(file.write(bytes("newer")));
    EXPECT_TRUE(std::filesystem::is_symlink(file_));
    EXPECT_EQ(contentOf(target), "newer");
    EXPECT_EQ(contentOf(temporary_.path() / "synced.unreadable-1"), "an earlier one");
    EXPECT_EQ(contentOf(temporary_.path() / "synced.unreadable-2"), "not understood");
}

TEST_F(StoreFileTest, SetsAsideAFolderInItsPlaceAndAFileThatAppearedAfterTheLook) {
    std::filesystem::create_directories(file_ / "content");
    StoreFile file(folders_, lock_);
    EXPECT_FALSE(file.read().error().isNoSuchFile);
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_EQ(contentOf(file_), "new");
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "keyEvents.data.unreadable-1/content"));

    std::filesystem::remove(file_);
    EXPECT_TRUE(file.read().error().isNoSuchFile);
    setContent(file_, "restored from a backup");
    EXPECT_FALSE(file.write(bytes("new")));
    EXPECT_EQ(contentOf(folder_ / "keyEvents.data.changed-1"), "restored from a backup");
}

TEST_F(StoreFileTest, SetsAsideWhatAnotherHasWrittenButNotWhatIsOnlyTouchedOrLinked) {
    namespace fs = std::filesystem;
    StoreFile file(folders_, lock_);
    EXPECT_TRUE(file.read().error().isNoSuchFile);
    EXPECT_FALSE(file.write(bytes("first")));
    fs::create_hard_link(file_, folder_ / "link");
    fs::last_write_time(file_, fs::file_time_type::clock::now() + std::chrono::hours(1));
    EXPECT_FALSE(file.write(bytes("second")));
    EXPECT_EQ(contentOf(folder_ / "link"), "first");
    EXPECT_FALSE(fs::exists(folder_ / "keyEvents.data.changed-1"));

    setContent(file_, "another's");
    EXPECT_FALSE(file.write(bytes("third")));
    EXPECT_EQ(contentOf(folder_ / "keyEvents.data.changed-1"), "another's");
    EXPECT_EQ(contentOf(file_), "third");
}

TEST_F(StoreFileTest, HasALockForOneAtATimeAndWhereThereIsNoneSetsAsideWhatEachWrites) {
    using Outcome = StoreLock::Outcome;
    CapturedLog log;
    EXPECT_EQ(lock_.outcome(), Outcome::kHeld);
    StoreLock second(folders_, "the second");
    EXPECT_EQ(second.outcome(), Outcome::kHeldByAnother);
    EXPECT_EQ(second.holder(), "the test");

    std::filesystem::remove(folder_ / "keyEvents.data.lock");
    std::filesystem::create_directory(folder_ / "keyEvents.data.lock");
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_EQ(lock_.take(), Outcome::kUnavailable);
    }
    EXPECT_EQ(log.take().size(), 1U);
    StoreLock otherLock(folders_, "");
    StoreFile file(folders_, lock_);
    StoreFile other(folders_, otherLock);
    EXPECT_FALSE(file.write(bytes("one")));
    EXPECT_FALSE(other.write(bytes("two")));
    EXPECT_FALSE(file.write(bytes("three")));
    EXPECT_EQ(contentOf(folder_ / "keyEvents.data.changed-1"), "one");
    EXPECT_EQ(contentOf(folder_ / "keyEvents.data.changed-2"), "two");
    EXPECT_EQ(contentOf(file_), "three");
}

TEST_F(StoreFileTest, LosesNothingToAnotherThatStartedAfterTheLockOrItsFolderWasDeleted) {
    for (const auto& deleted : {folder_ / "keyEvents.data.lock", folder_}) {
        StoreFile file(folders_, lock_);
        static_cast<void>(file.read());
        file.accept();
        EXPECT_FALSE(file.write(bytes("first")));
        setContent(folder_ / ".keyEvents.data.new-00000000", "a write of the other");
        std::filesystem::remove_all(deleted);
        {
            StoreLock otherLock(folders_, "");
            StoreFile other(folders_, otherLock);
            static_cast<void>(other.read());
            other.accept();
            EXPECT_FALSE(other.write(bytes("the other's")));
            setContent(folder_ / ".keyEvents.data.new-00000000", "a write of the other");
            const auto refused = file.write(bytes("second"));
            ASSERT_TRUE(refused);
            EXPECT_EQ(refused->cause, StoreFailureCause::kHeldByAnother);
            EXPECT_EQ(contentOf(file_), "the other's");
            EXPECT_TRUE(std::filesystem::exists(folder_ / ".keyEvents.data.new-00000000"));
        }
        EXPECT_FALSE(file.write(bytes("second")));
        EXPECT_EQ(contentOf(file_), "second");
        EXPECT_EQ(contentOf(folder_ / "keyEvents.data.changed-1"), "the other's");
        EXPECT_FALSE(std::filesystem::exists(folder_ / ".keyEvents.data.new-00000000"));
    }
}

TEST_F(StoreFileTest, KeepsTheStatesBesideAStoreThatAnotherWorksOnAtTheEnd) {
    CapturedLog log;
    auto model = makeModel();
    save(*model);
    std::filesystem::remove(folder_ / "keyEvents.data.lock");
    StoreLock otherLock(folders_, "");
    setContent(file_, "the other's");
    model->addWindowState(makeState("app", "Mine"));
    save(*model);
    EXPECT_THAT(log.take(), testing::ElementsAre("Error saving window states: another Panewright "
                                                 "works on the store"));
    model = nullptr;
    EXPECT_EQ(contentOf(file_), "the other's");
    const auto kept =
        unarchivedWindowStates(readFile(folder_ / "keyEvents.data.unsaved-1").value());
    EXPECT_EQ(kept->at("app")->at(0)->windowStateName(), "Mine");
}

} // namespace
} // namespace panewright
