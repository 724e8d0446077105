#include "desktop/linux/evdev_key_codes.h"

#include "desktop/x11/evdev_native_key_codes.h"

#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

namespace panewright {
namespace {

using testing::ElementsAre;

TEST(EvdevKeyCodes, NameEachPhysicalKeyOnce) {
    const std::pair<std::uint16_t, std::uint32_t> keys[] = {
        {0, KEY_A},    {10, KEY_102ND}, {18, KEY_1},    {22, KEY_6},   {23, KEY_5},
        {53, KEY_ESC}, {82, KEY_KP0},   {105, KEY_F13}, {122, KEY_F1}, {126, KEY_UP},
    };
    for (const auto& [virtualKeyCode, evdevCode] : keys) {
        EXPECT_THAT(evdevCodesOf(virtualKeyCode), ElementsAre(evdevCode)) << virtualKeyCode;
        EXPECT_EQ(EvdevNativeKeyCodes().virtualKeyCode(evdevCode + 8, 0), virtualKeyCode);
    }
    EXPECT_THAT(evdevCodesOf(114), ElementsAre(KEY_INSERT, KEY_HELP)); // keyboards differ
    for (std::uint16_t code = 0; code <= 128; ++code) {
        for (const auto evdevCode : evdevCodesOf(code)) {
            EXPECT_EQ(virtualKeyCodeOf(evdevCode), code);
        }
    }
    for (const std::uint32_t code : {KEY_RESERVED, KEY_PAUSE, KEY_F21, KEY_PLAYPAUSE}) {
        EXPECT_EQ(virtualKeyCodeOf(code), std::nullopt) << code;
    }
    EXPECT_EQ(EvdevNativeKeyCodes().virtualKeyCode(7, 0), std::nullopt);
}

} // namespace
} // namespace panewright
