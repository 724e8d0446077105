#include "shortcuts/shortcut_text.h"

#include "desktop/memory/memory_keyboard_layout.h"
#include "desktop/memory/memory_services.h"

#include <gtest/gtest.h>

#include <map>

namespace panewright {
namespace {

constexpr std::uint64_t kShift = 0x20000, kControl = 0x40000, kOption = 0x80000,
                        kCommand = 0x100000;

TEST(ShortcutTextTest, ShowsModifiersInTheirOrderAndThenTheKey) {
    MemoryKeyboardLayout layout;
    const MemoryTextServices services;
    const ShortcutText text(layout, services);
    layout.setKeys({{0, "a"}, {18, "1"}, {50, "`"}});
    const struct {
        std::uint64_t keyCode, flags;
        const char* shown;
    } cases[] = {
        {0, 0, "A"},
        {96, kControl | kShift, "⌃⇧F5"},
        {18, kCommand | kShift | kOption | kControl, "⌃⌥⇧⌘1"},
        {18, ~(kControl | kOption | kShift | kCommand), "1"}, // every other bit
        {50, kOption, "⌥`"},    // no name of its own between two that have
        {35, 0, ""},            // a key that types nothing
        {0x10000 + 18, 0, "1"}, // only the raw name looks at the low bits alone:
        {0x10000 + 49, 0, ""},  // 49 is Space, but 0x10031 as a whole is not
    };
    for (const auto& [keyCode, flags, shown] : cases) {
        EXPECT_EQ(text.presentableKeyboardShortcut(keyCode, flags), shown) << keyCode;
    }
    EXPECT_EQ(text.stringForRawKeyCode(0), "A");
    EXPECT_EQ(text.stringForRawKeyCode(49), "");
    EXPECT_EQ(text.shortcutInWords(18, kOption | kCommand), "Option+Command+1");
}

TEST(ShortcutTextTest, NamesTheKeysThatNoLayoutChanges) {
    MemoryKeyboardLayout layout;
    const MemoryTextServices services;
    const ShortcutText text(layout, services);
    const std::pair<std::uint16_t, const char*> names[] = {
        {36, "↩"},        {48, "⇥"},    {49, "Space"}, {51, "⌫"},    {53, "⎋"},    {64, "F17"},
        {71, "⌧"},        {76, "⌅"},    {79, "F18"},   {80, "F19"},  {90, "F20"},  {96, "F5"},
        {97, "F6"},       {98, "F7"},   {99, "F3"},    {100, "F8"},  {101, "F9"},  {103, "F11"},
        {105, "F13"},     {106, "F16"}, {107, "F14"},  {109, "F10"}, {111, "F12"}, {113, "F15"},
        {114, "?\u20DD"}, {115, "↖"},   {116, "⇞"},    {117, "⌦"},   {118, "F4"},  {119, "↘"},
        {120, "F2"},      {121, "←"},   {122, "F1"},   {123, "←"},   {124, "→"},   {125, "↓"},
        {126, "↑"},
    };
    std::map<std::uint16_t, std::string> expected(std::begin(names), std::end(names));
    for (std::uint16_t keyCode = 0; keyCode <= 128; ++keyCode) {
        layout.setKeys({{keyCode, "raw"}});
        const auto named = expected.try_emplace(keyCode, "RAW").first->second;
        EXPECT_EQ(text.stringFromKeyCode(keyCode, 0), named) << keyCode;
        EXPECT_EQ(text.presentableKeyboardShortcut(keyCode, 0), named) << keyCode;
    }
}

} // namespace
} // namespace panewright
