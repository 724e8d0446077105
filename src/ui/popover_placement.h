#pragma once

#include "ui/popover.h"

namespace panewright {

/// Where something stands beside what it hangs from.
enum class AnchorSide { kBelow, kAbove, kRightOf, kLeftOf };

/// Where a popover stands. Global points.
struct PopoverPlacement {
    Rect frame;
    /// The arrow is at the edge of the frame that faces the anchor.
    AnchorSide side = AnchorSide::kBelow;
    /// The arrow's tip along that edge, from the left or the top of the frame.
    double arrow = 0;

    friend bool operator==(const PopoverPlacement&, const PopoverPlacement&) = default;
};

/// Lengths of a popover's shape, in points.
struct PopoverShape {
    /// The whole window, the arrow included.
    Size size;
    /// How near the arrow's tip may come to the ends of its edge.
    double arrowMargin = 0;
    /// How near the other two edges may come to those of the work area.
    double sideMargin = 0;
};

/// Whether what hangs from the anchor stands to the right or left of it: the anchor is in a panel
/// at that edge of the work area.
bool isBesideWorkArea(const PopoverAnchor& anchor);

/// Below the anchor and centred under it, above where that has more room and below it does not fit,
/// or beside a panel at the left or right; pushed inside the work area, with the arrow still at the
/// anchor as far as its margin allows. A popover larger than the work area keeps its top left
/// inside. Everything comes out on whole points.
PopoverPlacement placePopover(const PopoverShape& shape, const PopoverAnchor& anchor);

/// The frame of a menu: on the same side as a popover, but beginning where the anchor begins.
Rect placeMenu(Size size, const PopoverAnchor& anchor);

} // namespace panewright
