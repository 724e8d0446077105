#pragma once

#include "base/geometry.h"
#include "desktop/x11/window_geometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace panewright {

/// How an outer frame is asked of a window manager: the arithmetic alone.

/// X windows stand on whole pixels. A position is rounded up, so that it equals the centred one
/// that a state computes; a fraction below 1/512 is noise of 32-bit steps and dropped before. A
/// size is rounded to the nearest and at least 1.
Point roundedPosition(Point position);
Size roundedSize(Size size);

/// Whether X can express it: finite, and within the 16 bits of a window's coordinates.
bool isExpressible(Point position);
bool isExpressible(Size size);

/// A display, and what panels leave free of it.
struct DisplayArea {
    Rect bounds;
    Rect workArea;

    friend bool operator==(const DisplayArea&, const DisplayArea&) = default;
};

/// The frame that is asked for when `written` (whole pixels) is written. Managers differ in what
/// they make of a window that covers a whole display with a panel on it, so each is asked for the
/// display's work area instead. Any other frame is asked for as it is: one without a panel, a
/// smaller one, and one that reaches onto another display (a mirror is none).
Rect frameToAsk(const Rect& written, const std::vector<DisplayArea>& displays);

/// The gravity and reference point of a position that is asked for with _NET_MOVERESIZE_WINDOW.
struct PositionRequest {
    std::uint32_t gravity = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const PositionRequest&, const PositionRequest&) = default;
};

/// Asks for the client (with its border, in root coordinates) to stand at `client`. `gravity` is
/// the window's own: a request that names another makes some managers shift the window later. A
/// manager that sets no frame extents (`managerTells` false) takes the client's own coordinates.
PositionRequest positionRequest(const Rect& client, const Extents& decoration,
                                std::uint32_t gravity, bool managerTells);

/// What reading a window gives after a frame was written to it and settled elsewhere.
struct SettledFrame {
    /// As written, the position rounded up.
    Rect written;
    /// What the manager was asked for then.
    Rect asked;
    /// Where the window stood then.
    Rect settled;
};

/// The written frame while the window still stands where it settled and no edge of that is more
/// than 64 pixels from what was asked for; else the true one.
Rect frameToReport(const Rect& trueFrame, const std::optional<SettledFrame>& memory);

} // namespace panewright
