#pragma once

#include "base/bytes.h"
#include "base/memory_budget.h"

#include <cstddef>

namespace panewright {

/// The largest property list that is read at all, in bytes. 10,000 states take about 3 MB.
inline constexpr std::size_t kMaxPropertyListSize = std::size_t{64} << 20;

/// How deep containers may be nested in each other. A keyed archive needs 4.
inline constexpr int kMaxPropertyListDepth = 32;

/// Whether the bytes are a binary property list that is safe to hand to the parser: everything lies
/// within the file, nothing contains itself, size and depth keep to the limits above, and what the
/// check and the parser hold, once every reference has been followed, to the budget, which it is
/// taken from. The parser follows references recursively and copies what is referenced twice, so
/// that a few hundred bytes could exhaust the stack or the memory.
bool isSafeBinaryPropertyList(const Bytes& bytes, MemoryBudget& budget);

} // namespace panewright
