#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace panewright {

/// The X server numbers keys by the kernel's event codes (linux/input-event-codes.h) plus this.
constexpr std::uint32_t kEvdevToXKeyCode = 8;

/// The event codes of a virtual key code: the key's own first, then those that stand for it on other
/// keyboards. Empty for a code that names no key.
std::vector<std::uint32_t> evdevCodesOf(std::uint32_t virtualKeyCode);

/// Nil for a key that has no virtual key code.
std::optional<std::uint16_t> virtualKeyCodeOf(std::uint32_t evdevCode);

} // namespace panewright
