#pragma once

#include "base/geometry.h"

#include <variant>

namespace panewright {

/// A value object: a number, or one of the four kinds of geometry that accessibility carries.
using Value = std::variant<double, Point, Size, Rect, Range>;

} // namespace panewright
