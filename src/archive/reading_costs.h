#pragma once

#include "base/memory_budget.h"

#include <cstddef>
#include <cstdint>

namespace panewright {

// What reading a keyed archive holds in memory, in bytes: the reader counts by this, and the
// writer, which writes nothing that could not be read back.

/// The most that one reading may hold in all. 10,000 states take about 90 MB of it.
inline constexpr std::uint64_t kMaxReadingMemory = std::uint64_t{256} << 20;

/// The most bytes that an archive may have, inflated.
inline constexpr std::size_t kMaxArchiveSize = std::size_t{64} << 20;

/// A text of so many bytes of UTF-8, each time that something refers to it.
constexpr std::uint64_t costOfText(std::size_t length) {
    return length + 64;
}

/// A value in an array, or a key or value in a dictionary, beside its own content.
inline constexpr std::uint64_t kCostOfElement = 64;

/// An object that the archive holds once, with its fields but for their texts.
inline constexpr std::uint64_t kCostOfObject = 640;

/// The table of objects, for each of them.
inline constexpr std::uint64_t kCostOfTableEntry = 64;

} // namespace panewright
