#include "desktop/x11/xkb_keyboard_layout.h"

#include "desktop/linux/evdev_key_codes.h"
#include "platform/hot_keys.h"

#include <fmt/format.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace panewright {
namespace {

struct NamedKey {
    std::uint16_t virtualKeyCode;
    const char* text;
};

/// What stands on keys that no layout has a text for: on the keypad whatever NumLock makes of it,
/// and names of keys that type nothing.
constexpr NamedKey kNamedKeys[] = {
    {65, "."},    {67, "*"},    {69, "+"},     {75, "/"},     {78, "-"},     {81, "="},
    {82, "0"},    {83, "1"},    {84, "2"},     {85, "3"},     {86, "4"},     {87, "5"},
    {88, "6"},    {89, "7"},    {91, "8"},     {92, "9"},     {95, ","},     {72, "Vol+"},
    {73, "Vol-"}, {74, "Mute"}, {102, "Eisu"}, {104, "Kana"}, {110, "Menu"},
};

struct DeadKey {
    xkb_keysym_t symbol;
    const char* accent;
};

/// A dead key types nothing by itself, but its accent stands on it.
constexpr DeadKey kDeadKeys[] = {
    {XKB_KEY_dead_grave, "`"},
    {XKB_KEY_dead_acute, "\u00B4"},
    {XKB_KEY_dead_circumflex, "^"},
    {XKB_KEY_dead_tilde, "~"},
    {XKB_KEY_dead_macron, "\u00AF"},
    {XKB_KEY_dead_breve, "\u02D8"},
    {XKB_KEY_dead_abovedot, "\u02D9"},
    {XKB_KEY_dead_diaeresis, "\u00A8"},
    {XKB_KEY_dead_abovering, "\u02DA"},
    {XKB_KEY_dead_doubleacute, "\u02DD"},
    {XKB_KEY_dead_caron, "\u02C7"},
    {XKB_KEY_dead_cedilla, "\u00B8"},
    {XKB_KEY_dead_ogonek, "\u02DB"},
    {XKB_KEY_dead_iota, "\u037A"},
    {XKB_KEY_dead_stroke, "/"},
    {XKB_KEY_dead_belowdot, "."},
    {XKB_KEY_dead_hook, "\u02C0"},
    {XKB_KEY_dead_horn, "\u02BC"},
    {XKB_KEY_dead_greek, "\u00B5"},
    {XKB_KEY_dead_currency, "\u00A4"},
    {XKB_KEY_dead_doublegrave, "\u02F5"},
};

/// Keys that people call otherwise than X does.
constexpr std::pair<xkb_keysym_t, const char*> kKeyWords[] = {
    {XKB_KEY_space, "Space"},    {XKB_KEY_BackSpace, "Backspace"}, {XKB_KEY_Prior, "Page Up"},
    {XKB_KEY_Next, "Page Down"}, {XKB_KEY_KP_Enter, "Enter"},      {XKB_KEY_Num_Lock, "Num Lock"},
};

/// In the order of the symbols (shortcuts/shortcut_text.cpp).
constexpr std::pair<std::uint32_t, const char*> kModifierWords[] = {{kHotKeyControl, "Ctrl"},
                                                                    {kHotKeyOption, "Alt"},
                                                                    {kHotKeyShift, "Shift"},
                                                                    {kHotKeyCommand, "Super"}};

std::string textOf(xkb_keysym_t symbol) {
    const auto* const dead = std::find_if(std::begin(kDeadKeys), std::end(kDeadKeys),
                                          [&](const DeadKey& key) { return key.symbol == symbol; });
    if (dead != std::end(kDeadKeys)) {
        return dead->accent;
    }
    std::array<char, 8> text{};
    const int size = xkb_keysym_to_utf8(symbol, text.data(), text.size());
    // Control characters are keys like Return, which have no text.
    const bool shown = size > 1 && static_cast<unsigned char>(text[0]) > ' ' && text[0] != '\x7F';
    return shown ? std::string(text.data()) : std::string();
}

} // namespace

std::string XkbKeyboardLayout::displayText(std::uint16_t virtualKeyCode) const {
    const auto* const named =
        std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                     [&](const NamedKey& key) { return key.virtualKeyCode == virtualKeyCode; });
    if (named != std::end(kNamedKeys)) {
        return named->text;
    }
    const auto symbol = symbolOf(virtualKeyCode);
    return symbol ? textOf(*symbol) : std::string();
}

std::optional<xkb_keysym_t> XkbKeyboardLayout::symbolOf(std::uint32_t virtualKeyCode) const {
    const auto codes = evdevCodesOf(virtualKeyCode);
    if (codes.empty() || !keymap_.get()) {
        return std::nullopt;
    }
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(
        keymap_.get(), codes.front() + kEvdevToXKeyCode, keymap_.asciiLayout(), 0, &symbols);
    return count == 1 ? std::optional(symbols[0]) : std::nullopt;
}

std::string XkbKeyboardLayout::inWords(std::uint32_t virtualKeyCode,
                                       std::uint32_t modifiers) const {
    std::string text;
    for (const auto& [modifier, word] : kModifierWords) {
        text += modifiers & modifier ? std::string(word) + '+' : std::string();
    }
    auto key = displayText(static_cast<std::uint16_t>(virtualKeyCode));
    const auto symbol = symbolOf(virtualKeyCode);
    const auto* const word = std::ranges::find(
        kKeyWords, symbol, [](const auto& each) { return std::optional(each.first); });
    if (word != std::end(kKeyWords)) {
        key = word->second;
    } else if (key.empty() && symbol) {
        std::array<char, 64> name{}; // F5, Left and so on
        xkb_keysym_get_name(*symbol, name.data(), name.size());
        key = name.data();
    } else if (key.size() == 1 && key[0] >= 'a' && key[0] <= 'z') {
        key[0] = static_cast<char>(key[0] - 'a' + 'A'); // as it stands on the key
    }
    return text + (key.empty() ? fmt::format("key {}", virtualKeyCode) : key);
}

std::string XkbKeyboardLayout::modifierInWords(std::uint32_t modifier) const {
    const auto* const named =
        std::ranges::find(kModifierWords, modifier, [](const auto& each) { return each.first; });
    return named == std::end(kModifierWords) ? "" : named->second;
}

} // namespace panewright
