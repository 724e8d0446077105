#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace panewright {

/// Modifier flags in the application's form, the one that is archived and shown.
constexpr std::uint64_t kShiftFlag = 0x20000;
constexpr std::uint64_t kControlFlag = 0x40000;
constexpr std::uint64_t kOptionFlag = 0x80000;
constexpr std::uint64_t kCommandFlag = 0x100000;
constexpr std::uint64_t kFunctionFlag = 0x800000;

/// The modifiers that a shortcut can have.
constexpr std::uint64_t kShortcutModifiers = kShiftFlag | kControlFlag | kOptionFlag | kCommandFlag;

/// Their symbols, in the order in which they are shown.
struct ModifierSymbol {
    std::uint64_t flag;
    std::string_view symbol;
};
constexpr std::array<ModifierSymbol, 4> kModifierSymbols{{
    {kControlFlag, "\u2303"},
    {kOptionFlag, "\u2325"},
    {kShiftFlag, "\u21E7"},
    {kCommandFlag, "\u2318"},
}};

} // namespace panewright
