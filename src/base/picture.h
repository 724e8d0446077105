#pragma once

#include "base/colour.h"
#include "base/geometry.h"

#include <vector>

namespace panewright {

/// A rectangle to be filled, or whose outline is to be drawn, in the points of its picture: origin
/// top-left, y downwards. It may lie outside the picture, wholly or in part, and then is cut off.
/// One with a coordinate that is not finite shows nothing.
struct PictureShape {
    enum class Kind { kFill, kStroke };

    Kind kind = Kind::kFill;
    Rect rect;
    Colour colour;
    /// Of a stroke, in points; half of it lies on each side of the outline.
    double lineWidth = 1;

    friend bool operator==(const PictureShape&, const PictureShape&) = default;
};

/// A drawing as a value. The shapes are drawn one over the other, the first one first.
struct Picture {
    /// In points.
    Size size;
    std::vector<PictureShape> shapes;

    friend bool operator==(const Picture&, const Picture&) = default;
};

} // namespace panewright
