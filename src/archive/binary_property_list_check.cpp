#include "archive/binary_property_list_check.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace panewright {
namespace {

constexpr std::string_view kMagic = "bplist00";
constexpr std::size_t kTrailerSize = 32;

// What the parser (libplist 2.2.0) takes beside the content, in bytes: for every node, and more for
// a text and a container.
constexpr std::uint64_t kNodeMemory = 96;
constexpr std::uint64_t kTextMemory = 32;
constexpr std::uint64_t kContainerMemory = 64;

/// What is known of an object and all that it contains.
struct Extent {
    enum class State : std::uint8_t { kUnknown, kBeingMeasured, kKnown } state = State::kUnknown;
    int depth = 0;
    std::uint64_t memory = 0;
};

class Checker {
public:
    Checker(const Bytes& bytes, MemoryBudget& budget) : bytes_(bytes), budget_(budget) {}

    bool check() {
        if (bytes_.size() < kMagic.size() + kTrailerSize || bytes_.size() > kMaxPropertyListSize ||
            !std::equal(kMagic.begin(), kMagic.end(), bytes_.begin())) {
            return false;
        }
        const std::size_t trailer = bytes_.size() - kTrailerSize;
        offsetSize_ = bytes_[trailer + 6];
        referenceSize_ = bytes_[trailer + 7];
        count_ = bigEndian(trailer + 8, 8);
        const std::uint64_t root = bigEndian(trailer + 16, 8);
        table_ = bigEndian(trailer + 24, 8);
        if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8 ||
            table_ < kMagic.size() || table_ > trailer ||
            count_ > (trailer - table_) / offsetSize_) {
            return false;
        }
        if (!budget_.take(count_, sizeof(Extent))) {
            return false;
        }
        extents_.resize(count_);
        return measure(root, 0) && budget_.take(extents_[root].memory);
    }

private:
    /// `size` bytes at `offset`, which lie within the file.
    std::uint64_t bigEndian(std::uint64_t offset, std::uint64_t size) const {
        std::uint64_t value = 0;
        for (std::uint64_t index = 0; index < size; ++index) {
            value = value << 8 | bytes_[offset + index];
        }
        return value;
    }

    /// Whether that many items of the size lie between the offset and the table of offsets.
    bool fits(std::uint64_t offset, std::uint64_t count, std::uint64_t size) const {
        return offset <= table_ && count <= (table_ - offset) / size;
    }

    /// The number of items that follow a marker with this low half; moves the offset behind it.
    std::optional<std::uint64_t> countAt(std::uint64_t& offset, unsigned low) const {
        if (low != 0xF) {
            return low;
        }
        if (!fits(offset, 1, 1) || bytes_[offset] >> 4 != 1) {
            return std::nullopt;
        }
        const std::uint64_t size = std::uint64_t{1} << (bytes_[offset] & 0xF);
        ++offset;
        if (size > 8 || !fits(offset, 1, size)) {
            return std::nullopt;
        }
        const std::uint64_t count = bigEndian(offset, size);
        offset += size;
        return count;
    }

    bool measure(std::uint64_t object, int depth) {
        if (object >= count_ || depth > kMaxPropertyListDepth) {
            return false;
        }
        Extent& extent = extents_[object];
        if (extent.state == Extent::State::kUnknown) {
            extent.state = Extent::State::kBeingMeasured;
            if (!measureContent(bigEndian(table_ + object * offsetSize_, offsetSize_), depth,
                                extent)) {
                return false;
            }
            extent.state = Extent::State::kKnown;
        }
        return extent.state == Extent::State::kKnown &&
               depth + extent.depth <= kMaxPropertyListDepth;
    }

    bool measureContent(std::uint64_t offset, int depth, Extent& extent) {
        if (offset < kMagic.size() || !fits(offset, 1, 1)) {
            return false;
        }
        const unsigned kind = bytes_[offset] >> 4;
        const unsigned low = bytes_[offset] & 0xF;
        ++offset;
        extent.memory = kNodeMemory;
        switch (kind) {
        case 0x0: // false, true
            return low == 0x8 || low == 0x9;
        case 0x1: // whole number
            return low <= 4 && fits(offset, 1, std::uint64_t{1} << low);
        case 0x2: // real number
            return (low == 2 || low == 3) && fits(offset, 1, std::uint64_t{1} << low);
        case 0x3: // date
            return low == 3 && fits(offset, 1, 8);
        case 0x8: // uid
            return low < 8 && fits(offset, 1, low + 1);
        case 0x4: // bytes
        case 0x5: // ASCII text
        case 0x6: // UTF-16 text
            return measureText(offset, kind == 0x6 ? 2 : 1, low, extent);
        case 0xA: // array
        case 0xD: // dictionary: all keys, then all values
            return measureContainer(offset, kind == 0xD, low, depth, extent);
        default:
            return false;
        }
    }

    bool measureText(std::uint64_t offset, std::uint64_t unit, unsigned low, Extent& extent) const {
        const auto count = countAt(offset, low);
        if (!count || !fits(offset, *count, unit)) {
            return false;
        }
        // A UTF-16 unit takes up to 3 bytes in UTF-8.
        extent.memory += kTextMemory + *count * (unit == 2 ? 3 : 1);
        return true;
    }

    bool measureContainer(std::uint64_t offset, bool isDictionary, unsigned low, int depth,
                          Extent& extent) {
        const auto count = countAt(offset, low);
        const std::uint64_t perItem = isDictionary ? 2 : 1;
        if (!count || !fits(offset, *count, perItem * referenceSize_)) {
            return false;
        }
        extent.memory += kContainerMemory;
        for (std::uint64_t index = 0; index < *count * perItem; ++index) {
            const std::uint64_t item = bigEndian(offset + index * referenceSize_, referenceSize_);
            if (!measure(item, depth + 1) || (isDictionary && index < *count && !isText(item))) {
                return false;
            }
            extent.depth = std::max(extent.depth, extents_[item].depth + 1);
            extent.memory += extents_[item].memory;
            if (extent.memory > budget_.left()) {
                return false;
            }
        }
        return true;
    }

    /// Whether the object, which has been measured, may be the key of a dictionary.
    bool isText(std::uint64_t object) const {
        const unsigned kind = bytes_[bigEndian(table_ + object * offsetSize_, offsetSize_)] >> 4;
        return kind == 0x5 || kind == 0x6;
    }

    const Bytes& bytes_;
    MemoryBudget& budget_;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t referenceSize_ = 0;
    std::uint64_t count_ = 0;
    std::uint64_t table_ = 0;
    std::vector<Extent> extents_;
};

} // namespace

bool isSafeBinaryPropertyList(const Bytes& bytes, MemoryBudget& budget) {
    return Checker(bytes, budget).check();
}

} // namespace panewright
