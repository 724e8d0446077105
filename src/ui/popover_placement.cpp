#include "ui/popover_placement.h"

#include <algorithm>
#include <cmath>

namespace panewright {
namespace {

/// `position` moved as little as needed for `length` to stay between the limits; the lower limit
/// goes first.
double pushedInside(double position, double length, double lower, double upper) {
    return std::max(std::min(position, upper - length), lower);
}

} // namespace

PopoverPlacement placePopover(const PopoverShape& shape, const PopoverAnchor& anchor) {
    const auto& size = shape.size;
    const auto& area = anchor.workArea;
    const double areaBottom = area.y + area.height;
    const double anchorBottom = anchor.rect.y + anchor.rect.height;
    const double roomBelow = areaBottom - std::max(anchorBottom, area.y);
    const double roomAbove = std::min(anchor.rect.y, areaBottom) - area.y;

    PopoverPlacement placement;
    placement.isBelow = size.height <= roomBelow || roomBelow >= roomAbove;
    const double middle = anchor.rect.x + anchor.rect.width / 2;
    const double x = pushedInside(middle - size.width / 2, size.width, area.x + shape.sideMargin,
                                  area.x + area.width - shape.sideMargin);
    const double y = pushedInside(placement.isBelow ? anchorBottom : anchor.rect.y - size.height,
                                  size.height, area.y, areaBottom);
    placement.frame = {std::round(x), std::round(y), size.width, size.height};
    placement.arrowX = pushedInside(std::round(middle) - placement.frame.x, 0, shape.arrowMargin,
                                    size.width - shape.arrowMargin);
    return placement;
}

} // namespace panewright
