#pragma once

#include "base/geometry.h"

#include <optional>

namespace panewright {

/// How bright the screen is where something is shown. Main thread only.
class ScreenBrightness {
public:
    virtual ~ScreenBrightness() = default;

    /// From 0 (black) to 1 (white), of one pixel. Global points. Nil when it cannot be seen.
    virtual std::optional<double> brightnessAt(Point point) const = 0;
};

} // namespace panewright
