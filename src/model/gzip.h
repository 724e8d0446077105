#pragma once

#include "base/bytes.h"

#include <cstddef>
#include <optional>

namespace panewright {

/// zlib's default level, about 6.
inline constexpr int kDefaultCompressionLevel = -1;

/// A gzip stream of the data. Levels are clamped to -1 (the default) to 9 (the smallest). Nil for
/// empty data, and when memory does not suffice.
std::optional<Bytes> gzippedData(const Bytes& data, int level = kDefaultCompressionLevel);

/// The content of a gzip or zlib stream. Nil for data that is empty, not compressed or cut short,
/// and for what would pass the limit, in bytes: a small file can inflate almost without end. Holds
/// up to twice the limit while it works.
std::optional<Bytes> gunzippedData(const Bytes& data, std::size_t limit);

} // namespace panewright
