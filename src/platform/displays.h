#pragma once

#include "base/geometry.h"
#include "base/registration.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace panewright {

/// Names a display for as long as it is connected. 0 names none.
using DisplayId = std::uint32_t;
constexpr DisplayId kNoDisplay = 0;

/// One screen of the windowing toolkit, with the device-description value "NSScreenNumber" that
/// says which display it is.
struct Screen {
    std::int64_t screenNumber = 0;
    std::string name;
};

/// The displays of the session.
///
/// Rectangles and points are in global points: origin at the top left of the main display, y
/// downwards. Nothing of a display is remembered longer than the display server has told otherwise:
/// one that was reconfigured answers with its new bounds at once. An identifier that names no
/// display is no error: its bounds and sizes are zero, its numbers 0. Main thread only.
class Displays {
public:
    virtual ~Displays() = default;

    /// The active displays in the server's order, the main one first, at most `capacity` of them.
    /// A display that mirrors another is listed after the one it mirrors.
    virtual std::vector<DisplayId> activeDisplays(std::size_t capacity) const = 0;

    /// The displays that hold the point (left and top edges belong to a display, right and bottom
    /// ones do not), in the server's order, at most `capacity`. Empty when none does or the server
    /// does not answer.
    virtual std::vector<DisplayId> displaysWithPoint(Point point, std::size_t capacity) const = 0;

    /// The displays that share an area with the rectangle, otherwise as displaysWithPoint.
    virtual std::vector<DisplayId> displaysWithRect(const Rect& rect,
                                                    std::size_t capacity) const = 0;

    /// The display that the given one mirrors; the given one when it mirrors none.
    virtual DisplayId primaryDisplay(DisplayId display) const = 0;

    virtual Rect bounds(DisplayId display) const = 0;

    /// Width and height in pixels of the mode that is shown, in the units of bounds().
    virtual Size pixelSize(DisplayId display) const = 0;

    /// Identity of the hardware, from its EDID; 0 where it gives none. The unit number tells
    /// displays of equal serial and vendor apart and stays with the connector.
    virtual std::uint32_t serialNumber(DisplayId display) const = 0;
    virtual std::uint32_t vendorNumber(DisplayId display) const = 0;
    virtual std::uint32_t unitNumber(DisplayId display) const = 0;

    /// The toolkit's screens, the one that carries the menu bar first; a mirror set is one screen.
    virtual std::vector<Screen> screens() const = 0;

    /// Calls back on the main loop after displays came, went, moved or changed their size.
    virtual Registration onChange(std::function<void()> callback) = 0;
};

} // namespace panewright
