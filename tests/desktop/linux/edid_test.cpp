#include "desktop/linux/edid.h"

#include <gtest/gtest.h>

#include <vector>

namespace panewright {
namespace {

TEST(Edid, GivesTheIdentityOfTheHardware) {
    std::vector<std::uint8_t> block{0,    0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0,
                                    0x10, 0xAC, 0x64, 0xA0, 0x4C, 0x37, 0x30, 0x31};
    EXPECT_FALSE(parseEdid(block)); // too short
    block.resize(128);
    EXPECT_EQ(parseEdid(block), (EdidIdentity{0x10AC, 0xA064, 0x3130374C}));
    block.resize(256); // with an extension
    EXPECT_EQ(parseEdid(block), (EdidIdentity{0x10AC, 0xA064, 0x3130374C}));
    block[0] = 1;
    EXPECT_FALSE(parseEdid(block));
    EXPECT_FALSE(parseEdid({}));
}

} // namespace
} // namespace panewright
