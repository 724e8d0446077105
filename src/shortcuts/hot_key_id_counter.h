#pragma once

#include <cstdint>
#include <limits>

namespace panewright {

/// Gives out hot-key ids: 1, 2, ... 0xFFFFFFFE, 0, 1, ...; 0xFFFFFFFF is never used.
class HotKeyIdCounter {
public:
    explicit HotKeyIdCounter(std::uint32_t first = 1) : next_(first) {}

    std::uint32_t take() {
        if (next_ == std::numeric_limits<std::uint32_t>::max()) {
            next_ = 0;
        }
        return next_++;
    }

private:
    std::uint32_t next_;
};

} // namespace panewright
