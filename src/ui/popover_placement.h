#pragma once

#include "ui/popover.h"

namespace panewright {

/// Where a popover stands. Global points.
struct PopoverPlacement {
    Rect frame;
    /// Whether it hangs below its anchor, with the arrow at its top; else it stands above.
    bool isBelow = true;
    /// The arrow's tip from the left edge of the frame.
    double arrowX = 0;

    friend bool operator==(const PopoverPlacement&, const PopoverPlacement&) = default;
};

/// Lengths of a popover's shape, in points.
struct PopoverShape {
    /// The whole window, the arrow included.
    Size size;
    /// How near the arrow's tip may come to the left and right edges.
    double arrowMargin = 0;
    /// How near the left and right edges may come to those of the work area.
    double sideMargin = 0;
};

/// Below the anchor and centred under it; above where that has more room and below it does not fit;
/// pushed inside the work area, with the arrow still at the anchor as far as its margin allows. A
/// popover larger than the work area keeps its top left inside. Everything comes out on whole
/// points.
PopoverPlacement placePopover(const PopoverShape& shape, const PopoverAnchor& anchor);

} // namespace panewright
