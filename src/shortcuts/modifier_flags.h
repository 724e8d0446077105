#pragma once

#include <cstdint>

namespace panewright {

/// Modifier flags in the application's form, the one that is archived and shown.
constexpr std::uint64_t kShiftFlag = 0x20000;
constexpr std::uint64_t kControlFlag = 0x40000;
constexpr std::uint64_t kOptionFlag = 0x80000;
constexpr std::uint64_t kCommandFlag = 0x100000;
constexpr std::uint64_t kFunctionFlag = 0x800000;

/// The modifiers that a shortcut can have.
constexpr std::uint64_t kShortcutModifiers = kShiftFlag | kControlFlag | kOptionFlag | kCommandFlag;

/// Between the application's form and the hot-key form (platform/hot_keys.h). The Function bit
/// passes unchanged, any other bit is dropped.
std::uint64_t cocoaToCarbonModifierFlags(std::uint64_t flags);
std::uint64_t carbonToCocoaModifierFlags(std::uint64_t flags);

} // namespace panewright
