#include "shortcuts/shortcut_text.h"

#include "shortcuts/modifier_flags.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace panewright {
namespace {

struct ModifierSymbol {
    std::uint64_t flag;
    std::string_view symbol;
};

/// In the order in which they are shown.
constexpr ModifierSymbol kModifierSymbols[] = {
    {kControlFlag, "\u2303"},
    {kOptionFlag, "\u2325"},
    {kShiftFlag, "\u21E7"},
    {kCommandFlag, "\u2318"},
};

static_assert([] {
    std::uint64_t shown = 0;
    for (const auto& [flag, symbol] : kModifierSymbols) {
        shown |= flag;
    }
    return shown == kShortcutModifiers;
}());

struct KeyName {
    std::uint64_t keyCode;
    std::string_view name;
};

/// Keys whose name does not depend on the layout, by key code.
constexpr KeyName kKeyNames[] = {
    {36, "\u21A9"},   // Return
    {48, "\u21E5"},   // Tab
    {49, "Space"},    //
    {51, "\u232B"},   // Delete (backspace)
    {53, "\u238B"},   // Escape
    {64, "F17"},      //
    {71, "\u2327"},   // keypad Clear
    {76, "\u2305"},   // keypad Enter
    {79, "F18"},      //
    {80, "F19"},      //
    {90, "F20"},      //
    {96, "F5"},       //
    {97, "F6"},       //
    {98, "F7"},       //
    {99, "F3"},       //
    {100, "F8"},      //
    {101, "F9"},      //
    {103, "F11"},     //
    {105, "F13"},     //
    {106, "F16"},     //
    {107, "F14"},     //
    {109, "F10"},     //
    {111, "F12"},     //
    {113, "F15"},     //
    {114, "?\u20DD"}, // Help
    {115, "\u2196"},  // Home
    {116, "\u21DE"},  // Page Up
    {117, "\u2326"},  // Forward Delete
    {118, "F4"},      //
    {119, "\u2198"},  // End
    {120, "F2"},      //
    {121, "\u2190"},  // Page Down shares Left Arrow's symbol
    {122, "F1"},      //
    {123, "\u2190"},  // Left Arrow
    {124, "\u2192"},  // Right Arrow
    {125, "\u2193"},  // Down Arrow
    {126, "\u2191"},  // Up Arrow
};

/// Empty for a key without a name of its own.
std::string_view fixedName(std::uint64_t keyCode) {
    const auto* const found =
        std::lower_bound(std::begin(kKeyNames), std::end(kKeyNames), keyCode,
                         [](const KeyName& key, std::uint64_t code) { return key.keyCode < code; });
    return found != std::end(kKeyNames) && found->keyCode == keyCode ? found->name
                                                                     : std::string_view();
}

std::uint32_t hotKeyForm(std::uint64_t modifierFlags) {
    return static_cast<std::uint32_t>(cocoaToCarbonModifierFlags(modifierFlags));
}

} // namespace

std::string modifierSymbols(std::uint64_t modifierFlags) {
    std::string text;
    for (const auto& [flag, symbol] : kModifierSymbols) {
        if (modifierFlags & flag) {
            text += symbol;
        }
    }
    return text;
}

std::string ShortcutText::presentableKeyboardShortcut(std::uint64_t keyCode,
                                                      std::uint64_t modifierFlags) const {
    std::string text = modifierSymbols(modifierFlags);
    const auto name = fixedName(keyCode);
    return text += name.empty() ? stringForRawKeyCode(static_cast<std::uint16_t>(keyCode))
                                : std::string(name);
}

std::string ShortcutText::stringFromKeyCode(std::uint16_t keyCode,
                                            std::uint64_t andModifierFlags) const {
    return presentableKeyboardShortcut(keyCode, andModifierFlags);
}

std::string ShortcutText::stringForRawKeyCode(std::uint16_t keyCode) const {
    return text_.upperCased(layout_.displayText(keyCode));
}

std::string ShortcutText::shortcutInWords(std::uint64_t keyCode,
                                          std::uint64_t modifierFlags) const {
    return layout_.inWords(static_cast<std::uint32_t>(keyCode), hotKeyForm(modifierFlags));
}

std::string ShortcutText::modifierInWords(std::uint64_t modifierFlag) const {
    return layout_.modifierInWords(hotKeyForm(modifierFlag));
}

} // namespace panewright
