#pragma once

#include <cstdint>
#include <vector>

namespace panewright {

using Bytes = std::vector<std::uint8_t>;

} // namespace panewright
