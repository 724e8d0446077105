#pragma once

#include "base/geometry.h"

namespace panewright {

/// What a popover hangs from. Global points.
struct PopoverAnchor {
    /// Of the status item, or of no size where only a point is known.
    Rect rect;
    /// What the popover must not leave.
    Rect workArea;

    friend bool operator==(const PopoverAnchor&, const PopoverAnchor&) = default;
};

/// A small window with an arrow that points at what it hangs from. It stays until it is closed,
/// whatever is clicked meanwhile.
class Popover {
public:
    virtual ~Popover() = default;

    virtual bool isShown() const = 0;
    /// Shows it at the anchor, or moves it there.
    virtual void show(const PopoverAnchor& anchor) = 0;
    virtual void makeKeyAndOrderFront() = 0;
    /// Nothing when it is closed.
    virtual void close() = 0;
};

} // namespace panewright
