#pragma once

#include <cstdint>

namespace panewright {

/// Counts the memory that some work holds, in bytes, before it holds it. What the work frees
/// meanwhile is not given back, so the count never falls below the truth.
class MemoryBudget {
public:
    explicit MemoryBudget(std::uint64_t bytes) : left_(bytes) {}

    /// False when the budget has less left; nothing more is granted after that.
    [[nodiscard]] bool take(std::uint64_t bytes) {
        const bool isGranted = bytes <= left_;
        left_ = isGranted ? left_ - bytes : 0;
        isExceeded_ = isExceeded_ || !isGranted;
        return !isExceeded_;
    }
    /// The same for `count` items of `bytesEach`.
    [[nodiscard]] bool take(std::uint64_t count, std::uint64_t bytesEach) {
        return take(bytesEach == 0 || count <= left_ / bytesEach ? count * bytesEach : left_ + 1);
    }

    std::uint64_t left() const { return left_; }

private:
    std::uint64_t left_;
    bool isExceeded_ = false;
};

} // namespace panewright
