#pragma once

#include "ui/popover.h"

namespace panewright {

/// Where a popover stands. Global points.
struct PopoverPlacement {
    /// The whole window, the arrow included.
    Rect frame;
    /// Whether it hangs below its anchor, with the arrow at its top; else it stands above.
    bool isBelow = true;
    /// The arrow's tip from the left edge of the frame.
    double arrowX = 0;

    friend bool operator==(const PopoverPlacement&, const PopoverPlacement&) = default;
};

/// Below the anchor and centred under it; above where that has more room and below it does not fit;
/// pushed inside the work area, with the arrow still at the anchor as long as it stays
/// `arrowMargin` off the corners. `size` includes the arrow. A popover larger than the work area
/// keeps its top left inside. Everything comes out on whole points.
PopoverPlacement placePopover(Size size, double arrowMargin, const PopoverAnchor& anchor);

} // namespace panewright
