#pragma once

#include <cstdint>

namespace panewright {

/// Virtual key codes (physical keys, whatever the layout) that the program names itself.
constexpr std::uint16_t kTabKeyCode = 48;
constexpr std::uint16_t kSpaceKeyCode = 49;
constexpr std::uint16_t kDeleteKeyCode = 51;
constexpr std::uint16_t kEscapeKeyCode = 53;
/// The modifier keys, left and right, with Caps Lock and Function, have a run of codes.
constexpr std::uint16_t kFirstModifierKeyCode = 54;
constexpr std::uint16_t kLastModifierKeyCode = 63;
constexpr std::uint16_t kDigit1KeyCode = 18;
constexpr std::uint16_t kDigit2KeyCode = 19;
constexpr std::uint16_t kDigit3KeyCode = 20;
constexpr std::uint16_t kDigit4KeyCode = 21;

} // namespace panewright
