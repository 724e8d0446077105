#include "shortcuts/shortcut_text.h"

#include "desktop/memory/memory_keyboard_layout.h"
#include "desktop/memory/memory_services.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

constexpr std::uint64_t kControl = 0x40000;
constexpr std::uint64_t kOption = 0x80000;
constexpr std::uint64_t kShift = 0x20000;
constexpr std::uint64_t kCommand = 0x100000;

TEST(ShortcutTextTest, ShowsModifiersInTheirOrderAndThenTheKey) {
    MemoryKeyboardLayout layout;
    const MemoryTextServices services;
    const ShortcutText text(layout, services);
    layout.setKeys({{0, "a"}, {18, "1"}, {50, "`"}});
    const struct {
        std::uint64_t keyCode;
        std::uint64_t flags;
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
    const std::pair<std::uint16_t, const char*> unchanging[] = {
        {36, "↩"},  {48, "⇥"},        {49, "Space"}, {51, "⌫"},   {53, "⎋"},
        {71, "⌧"},  {114, "?\u20DD"}, {117, "⌦"},    {122, "F1"}, {123, "←"},
        {124, "→"}, {125, "↓"},       {126, "↑"},    {72, "RAW"}};
    for (const auto& [keyCode, name] : unchanging) {
        layout.setKeys({{keyCode, "raw"}});
        EXPECT_EQ(text.presentableKeyboardShortcut(keyCode, 0), name) << keyCode;
    }
    layout.setKeys({{49, " "}, {0, "a"}});
    EXPECT_EQ(text.stringForRawKeyCode(0), "A");
    const std::pair<std::uint16_t, const char*> inMenus[] = {{0, "A"}, {49, "Space"}, {96, "F5"}};
    for (const auto& [keyCode, shown] : inMenus) {
        EXPECT_EQ(text.keyEquivalentForKeyCode(keyCode), shown);
    }
}

} // namespace
} // namespace panewright
