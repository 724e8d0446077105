#include "desktop/x11/desktop_entry_icons.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace panewright {
namespace {

TEST(IconPictures, AreThoseThatAreWhole) {
    const IconPicture one{1, 1, {0xFF112233}};
    const IconPicture two{2, 1, {0xFF000001, 0x80000002}};
    const struct {
        std::vector<std::uint32_t> property;
        std::vector<IconPicture> pictures;
    } cases[] = {
        {{}, {}},
        {{1}, {}},
        {{1, 1}, {}},
        {{1, 1, 0xFF112233}, {one}},
        {{1, 1, 0xFF112233, 2, 1, 0xFF000001, 0x80000002}, {one, two}},
        {{1, 1, 0xFF112233, 2, 1, 0xFF000001}, {one}},
        {{1, 1, 0xFF112233, 0, 5, 1, 1, 1}, {one}},
        {{0xFFFFFFFF, 0xFFFFFFFF, 1}, {}},
        {{0x10000, 0x10000, 1}, {}}, // no pixels in 32 bits
    };
    for (const auto& test : cases) {
        EXPECT_EQ(iconPictures(test.property), test.pictures);
    }
    std::vector<std::uint32_t> wide{1025, 1};
    wide.resize(2 + 1025);
    wide.insert(wide.end(), {1, 1, 0xFF112233});
    EXPECT_EQ(iconPictures(wide), std::vector{one});
    EXPECT_EQ(iconPictures(std::vector<std::uint32_t>(1000, 1)).size(), 16U);
}

} // namespace
} // namespace panewright
