#pragma once

#include "base/geometry.h"

#include <ostream>

namespace panewright {

// How failing expectations show the values; found by GoogleTest beside the types.

// NOLINTNEXTLINE(readability-identifier-naming)
inline void PrintTo(const Point& point, std::ostream* out) {
    *out << "(" << point.x << ", " << point.y << ")";
}

inline void PrintTo(const Size& size, std::ostream* out) { // NOLINT(readability-identifier-naming)
    *out << size.width << " by " << size.height;
}

inline void PrintTo(const Rect& rect, std::ostream* out) { // NOLINT(readability-identifier-naming)
    *out << "(" << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height << ")";
}

} // namespace panewright
