#include "model/gzip.h"

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
    for (const std::size_t size : {1, 2, 16360, 16384, 16385, 100000}) {
        for (const Bytes& data : {Bytes(size, 'a'), noise(size)}) {
            const auto gzipped = gzippedData(data);
            ASSERT_TRUE(gzipped) << size;
            EXPECT_EQ(gzipped->at(0), 0x1F) << "gzip, not zlib";
            EXPECT_EQ(gunzippedData(*gzipped), data) << size;
        }
    }
    const Bytes text = bytes(std::string(3000, 'x') + "the quick brown fox");
    EXPECT_EQ(gzippedData(text, 12), gzippedData(text, 9));
    EXPECT_EQ(gzippedData(text, -5), gzippedData(text, -1));
    EXPECT_NE(gzippedData(text, 0), gzippedData(text, 9));
}

TEST(Gzip, ReadsZlibStreamsToo) {
    const Bytes data = bytes("window states");
    Bytes zlib(100);
    uLongf size = zlib.size();
    ASSERT_EQ(compress(zlib.data(), &size, data.data(), data.size()), Z_OK);
    zlib.resize(size);
    EXPECT_EQ(gunzippedData(zlib), data);
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

} // namespace
} // namespace panewright
