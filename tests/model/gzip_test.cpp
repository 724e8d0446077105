#include "model/gzip.h"

#include <gtest/gtest.h>
#include <zlib.h>

namespace panewright {
namespace {

Bytes bytes(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

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
    for (const std::size_t size : {1, 2, 16360, 16384, 16385, 100000}) {
        for (const Bytes& data : {Bytes(size, 'a'), noise(size)}) {
            const auto gzipped = gzippedData(data);
            ASSERT_TRUE(gzipped) << size;
            EXPECT_EQ(gzipped->at(0), 0x1F) << "gzip, not zlib";
            EXPECT_EQ(gunzippedData(*gzipped), data) << size;
        }
    }
}

TEST(Gzip, GivesNilForEmptyData) {
    EXPECT_EQ(gzippedData({}), std::nullopt);
    EXPECT_EQ(gunzippedData({}), std::nullopt);
}

TEST(Gzip, ClampsTheLevel) {
    const Bytes data =
        bytes(std::string(3000, 'x') + "the quick brown fox jumps over the lazy dog");
    EXPECT_EQ(gzippedData(data, 12), gzippedData(data, 9));
    EXPECT_EQ(gzippedData(data, -5), gzippedData(data, -1));
    EXPECT_NE(gzippedData(data, 0), gzippedData(data, 9));
}

TEST(Gzip, ReadsZlibStreamsToo) {
    const Bytes data = bytes("window states");
    Bytes zlib(100);
    uLongf size = zlib.size();
    ASSERT_EQ(compress(zlib.data(), &size, data.data(), data.size()), Z_OK);
    zlib.resize(size);
    EXPECT_EQ(gunzippedData(zlib), data);
}

TEST(Gzip, GivesNilForWhatIsNotCompressedOrNotWhole) {
    EXPECT_EQ(gunzippedData(bytes("bplist00 not compressed")), std::nullopt);
    Bytes gzipped = *gzippedData(noise(1000));
    gzipped.pop_back();
    EXPECT_EQ(gunzippedData(gzipped), std::nullopt);
    gzipped.resize(1);
    EXPECT_EQ(gunzippedData(gzipped), std::nullopt);
    Bytes damaged = *gzippedData(noise(1000));
    damaged[500] ^= 1;
    EXPECT_EQ(gunzippedData(damaged), std::nullopt);
}

TEST(Gzip, RefusesToInflateWithoutEnd) {
    const auto largest = gzippedData(Bytes(kMaxGunzippedSize, 0), 9);
    EXPECT_LT(largest->size(), std::size_t{100'000});
    EXPECT_EQ(gunzippedData(*largest)->size(), kMaxGunzippedSize);
    EXPECT_EQ(gunzippedData(*gzippedData(Bytes(kMaxGunzippedSize + 1, 0), 9)), std::nullopt);
}

} // namespace
} // namespace panewright
