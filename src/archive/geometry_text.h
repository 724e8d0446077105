#pragma once

#include "base/geometry.h"

#include <string>
#include <string_view>

namespace panewright {

/// The platform's text of a rectangle and of a size, "{{x, y}, {w, h}}" and "{w, h}": each number
/// the shortest text that reads back to the same double, whole numbers without a fraction, whatever
/// the locale.
std::string NSStringFromRect(const Rect& rect);
std::string NSStringFromSize(Size size);

/// The reverse. Text that is not of that form gives all zeros.
Rect NSRectFromString(std::string_view text);
Size NSSizeFromString(std::string_view text);

} // namespace panewright
