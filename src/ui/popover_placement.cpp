#include "ui/popover_placement.h"

#include <algorithm>
#include <cmath>

namespace panewright {
namespace {

/// One axis of a rectangle.
struct Span {
    double start = 0;
    double length = 0;

    double end() const { return start + length; }
    double middle() const { return start + length / 2; }
};

Span horizontal(const Rect& rect) {
    return {rect.x, rect.width};
}

Span vertical(const Rect& rect) {
    return {rect.y, rect.height};
}

/// `position` moved as little as needed for `length` to stay between the limits; the lower limit
/// goes first.
double pushedInside(double position, double length, double lower, double upper) {
    return std::max(std::min(position, upper - length), lower);
}

double pushedInside(double position, double length, const Span& area, double margin = 0) {
    return pushedInside(position, length, area.start + margin, area.end() - margin);
}

/// Whether something of that length goes behind the anchor (below or right of it), not before it.
bool goesBehind(const Span& anchor, double length, const Span& area) {
    const double behind = area.end() - std::max(anchor.end(), area.start);
    const double before = std::min(anchor.start, area.end()) - area.start;
    return length <= behind || behind >= before;
}

AnchorSide sideOf(Size size, const PopoverAnchor& anchor) {
    if (isBesideWorkArea(anchor)) {
        return anchor.rect.x < anchor.workArea.x ? AnchorSide::kRightOf : AnchorSide::kLeftOf;
    }
    return goesBehind(vertical(anchor.rect), size.height, vertical(anchor.workArea))
               ? AnchorSide::kBelow
               : AnchorSide::kAbove;
}

/// On the axis that leads away from the anchor.
double awayFrom(const Span& anchor, bool behind, double length, const Span& area) {
    return pushedInside(behind ? anchor.end() : anchor.start - length, length, area);
}

} // namespace

bool isBesideWorkArea(const PopoverAnchor& anchor) {
    const Span span = horizontal(anchor.rect);
    const Span area = horizontal(anchor.workArea);
    // A point on the edge itself is in no panel.
    const bool isPoint = span.length == 0;
    return isPoint ? span.start < area.start || span.start > area.end()
                   : span.end() <= area.start || span.start >= area.end();
}

PopoverPlacement placePopover(const PopoverShape& shape, const PopoverAnchor& anchor) {
    const auto& [size, arrowMargin, sideMargin] = shape;
    const AnchorSide side = sideOf(size, anchor);
    const bool isBehind = side == AnchorSide::kBelow || side == AnchorSide::kRightOf;
    const bool isUpright = side == AnchorSide::kBelow || side == AnchorSide::kAbove;
    const auto away = isUpright ? vertical : horizontal;
    const auto along = isUpright ? horizontal : vertical;
    const double awayLength = isUpright ? size.height : size.width;
    const double alongLength = isUpright ? size.width : size.height;

    const double middle = along(anchor.rect).middle();
    const double distance =
        std::round(awayFrom(away(anchor.rect), isBehind, awayLength, away(anchor.workArea)));
    const double start = std::round(
        pushedInside(middle - alongLength / 2, alongLength, along(anchor.workArea), sideMargin));
    PopoverPlacement placement;
    placement.side = side;
    placement.frame = isUpright ? Rect{start, distance, size.width, size.height}
                                : Rect{distance, start, size.width, size.height};
    placement.arrow =
        pushedInside(std::round(middle) - start, 0, arrowMargin, alongLength - arrowMargin);
    return placement;
}

Rect placeMenu(Size size, const PopoverAnchor& anchor) {
    const AnchorSide side = sideOf(size, anchor);
    const auto& [rect, area] = anchor;
    const bool isBehind = side == AnchorSide::kBelow || side == AnchorSide::kRightOf;
    const bool isUpright = side == AnchorSide::kBelow || side == AnchorSide::kAbove;
    const double x = isUpright ? pushedInside(rect.x, size.width, horizontal(area))
                               : awayFrom(horizontal(rect), isBehind, size.width, horizontal(area));
    const double y = isUpright ? awayFrom(vertical(rect), isBehind, size.height, vertical(area))
                               : pushedInside(rect.y, size.height, vertical(area));
    return {std::round(x), std::round(y), size.width, size.height};
}

} // namespace panewright
