#include "desktop/linux/edid.h"

#include <algorithm>
#include <array>

namespace panewright {
namespace {

constexpr std::array<std::uint8_t, 8> kHeader{0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0};
constexpr std::size_t kBlockSize = 128;

} // namespace

std::optional<EdidIdentity> parseEdid(std::span<const std::uint8_t> block) {
    if (block.size() < kBlockSize || !std::equal(kHeader.begin(), kHeader.end(), block.begin())) {
        return std::nullopt;
    }
    const auto at = [&](std::size_t index) { return static_cast<std::uint32_t>(block[index]); };
    EdidIdentity identity;
    identity.vendor = static_cast<std::uint16_t>(at(8) << 8U | at(9));
    identity.product = static_cast<std::uint16_t>(at(11) << 8U | at(10));
    identity.serial = at(15) << 24U | at(14) << 16U | at(13) << 8U | at(12);
    return identity;
}

} // namespace panewright
