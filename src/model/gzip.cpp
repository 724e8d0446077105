#include "model/gzip.h"

#include <zlib.h>

#include <algorithm>

namespace panewright {
namespace {

// 15 bits of window; 16 more ask for the gzip wrapper, 32 more to recognise gzip or zlib.
constexpr int kGzipWindowBits = 15 + 16;
constexpr int kAnyWindowBits = 15 + 32;
constexpr int kMemoryLevel = 8;
constexpr std::size_t kChunk = 16384;

/// zlib counts the bytes it is given in 32 bits.
constexpr std::size_t kMaxInput = 0xFFFFFFFF;

z_stream streamOver(const Bytes& data) {
    z_stream stream{};
    stream.next_in = const_cast<Bytef*>(data.data()); // zlib does not write to its input
    stream.avail_in = static_cast<uInt>(data.size());
    return stream;
}

/// Points the stream's output at the part of the buffer that is not filled yet.
void continueOutput(z_stream& stream, Bytes& output) {
    stream.next_out = output.data() + stream.total_out;
    stream.avail_out = static_cast<uInt>(output.size() - stream.total_out);
}

} // namespace

std::optional<Bytes> gzippedData(const Bytes& data, int level) {
    if (data.empty() || data.size() > kMaxInput) {
        return std::nullopt;
    }
    z_stream stream = streamOver(data);
    if (deflateInit2(&stream, std::clamp(level, -1, 9), Z_DEFLATED, kGzipWindowBits, kMemoryLevel,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
        return std::nullopt;
    }
    Bytes output(kChunk);
    do {
        if (stream.total_out >= output.size()) {
            output.resize(output.size() + kChunk);
        }
        continueOutput(stream, output);
        deflate(&stream, Z_FINISH);
    } while (stream.avail_out == 0);
    deflateEnd(&stream);
    output.resize(stream.total_out);
    return output;
}

std::optional<Bytes> gunzippedData(const Bytes& data, std::size_t limit) {
    if (data.empty() || data.size() > kMaxInput) {
        return std::nullopt;
    }
    z_stream stream = streamOver(data);
    if (inflateInit2(&stream, kAnyWindowBits) != Z_OK) {
        return std::nullopt;
    }
    Bytes output(std::min(data.size() + data.size() / 2, limit + 1));
    int status = Z_OK;
    while (status == Z_OK && stream.total_out <= limit) {
        if (stream.total_out >= output.size()) {
            // At least one byte, or a stream of one byte would never get room.
            output.resize(
                std::min(output.size() + std::max<std::size_t>(data.size() / 2, 1), limit + 1));
        }
        continueOutput(stream, output);
        status = inflate(&stream, Z_SYNC_FLUSH);
    }
    const bool isWhole = status == Z_STREAM_END && stream.total_out <= limit;
    if (inflateEnd(&stream) != Z_OK || !isWhole) {
        return std::nullopt;
    }
    output.resize(stream.total_out);
    return output;
}

} // namespace panewright
