#pragma once

#include "base/bytes.h"

#include <cstddef>
#include <cstdint>

namespace panewright {

/// The largest property list that is read at all, in bytes. 10,000 states take about 3 MB.
inline constexpr std::size_t kMaxPropertyListSize = std::size_t{64} << 20;

/// How deep containers may be nested in each other. A keyed archive needs 4.
inline constexpr int kMaxPropertyListDepth = 32;

/// The memory, in bytes, that the list may take once every reference in it has been followed.
inline constexpr std::uint64_t kMaxPropertyListMemory = std::uint64_t{1} << 30;

/// Whether the bytes are a binary property list that is safe to hand to the parser: everything lies
/// within the file, nothing contains itself, and depth and unfolded size keep to the limits above.
/// The parser follows references recursively and copies what is referenced twice, so that a few
/// hundred bytes could exhaust the stack or the memory.
bool isSafeBinaryPropertyList(const Bytes& bytes);

} // namespace panewright
