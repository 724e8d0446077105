#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace panewright {

/// Who made a display, as it says itself (VESA E-EDID, "Vendor & Product Identification").
struct EdidIdentity {
    /// Three letters, packed.
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    /// 0 for a display without one.
    std::uint32_t serial = 0;

    friend bool operator==(const EdidIdentity&, const EdidIdentity&) = default;
};

/// Nil for what is no EDID block.
std::optional<EdidIdentity> parseEdid(std::span<const std::uint8_t> block);

} // namespace panewright
