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

TEST(Gzip, GivesBackDataOfAnySize) {
    // Around the 16384 bytes that the output grows by, and data that does not get smaller.
    for (const std::size_t size : {1, 16360, 16384, 16385, 100000}) {
        for (const Bytes& data : {Bytes(size, 'a'), noise(size)}) {
            EXPECT_EQ(gunzippedData(*gzippedData(data)), data) << size;
        }
    }
    const Bytes plain(1000, 'a');
    EXPECT_EQ((*gzippedData(plain, 9))[8], 2) << "says that it is the best compression (RFC 1952)";
    Bytes zlib(100);
    uLongf length = zlib.size();
    ASSERT_EQ(compress(zlib.data(), &length, plain.data(), plain.size()), Z_OK);
    zlib.resize(length);
    EXPECT_EQ(gunzippedData(zlib), plain);
}

TEST(Gzip, GivesNilForWhatIsEmptyOrNotCompressedOrNotWhole) {
    const Bytes whole = *gzippedData(noise(1000));
    Bytes damaged = whole;
    damaged[500] ^= 1;
    for (const Bytes& data : {Bytes(), bytes("bplist00 not compressed"), damaged,
                              Bytes(whole.begin(), whole.end() - 1), Bytes(1, 0x1F)}) {
        EXPECT_EQ(gunzippedData(data), std::nullopt) << data.size();
    }
    EXPECT_EQ(gzippedData({}), std::nullopt);
}

TEST(Gzip, RefusesToInflateWithoutEnd) {
    const auto largest = gzippedData(Bytes(kMaxGunzippedSize, 0), 9);
    EXPECT_EQ(gunzippedData(*largest)->size(), kMaxGunzippedSize);
    EXPECT_EQ(gunzippedData(*gzippedData(Bytes(kMaxGunzippedSize + 1, 0), 9)), std::nullopt);
}

class StoreFileTest : public StoreFixture {};

TEST_F(StoreFileTest, SetsAsideWhatItHasNotReadBesideTheTargetOfALink) {
    const auto target = temporary_.path() / "synced";
    setContent(target, "not understood");
    setContent(temporary_.path() / "synced.unreadable-1", "an earlier one");
    std::filesystem::create_directories(folder_);
    std::filesystem::create_symlink("../synced", file_);
    StoreFile file(folders_);
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

TEST_F(StoreFileTest, HasALockForOneAtATime) {
    using Outcome = StoreLock::Outcome;
    CapturedLog log;
    for (int time = 0; time < 2; ++time) {
        const StoreLock first(folders_);
        EXPECT_EQ(first.outcome(), Outcome::kHeld);
        EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kHeldByAnother);
    }
    std::filesystem::remove(folder_ / "keyEvents.data.lock");
    std::filesystem::create_directory(folder_ / "keyEvents.data.lock");
    EXPECT_EQ(StoreLock(folders_).outcome(), Outcome::kUnavailable);
    EXPECT_EQ(log.take().size(), 1U);
}

} // namespace
} // namespace panewright
