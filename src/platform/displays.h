#pragma once

#include "base/geometry.h"
#include "base/registration.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace panewright {

/// Names a display for as long as it is connected. 0 names none.
using DisplayId = std::uint32_t;
constexpr DisplayId kNoDisplay = 0;

/// One display as it is now. Rectangles are in global points: origin at the top left of the main
/// display, y downwards.
struct Display {
    DisplayId id = kNoDisplay;
    /// The display that this one mirrors; its own identifier if it mirrors none.
    DisplayId mirrored = kNoDisplay;
    Rect bounds;
    /// Width and height in pixels of the mode that is shown, in the units of `bounds`.
    Size pixelSize;
    /// Identity of the hardware, from its EDID; 0 where it gives none. The unit number tells
    /// displays of equal serial and vendor apart and stays with the connector.
    std::uint32_t serialNumber = 0;
    std::uint32_t vendorNumber = 0;
    std::uint32_t unitNumber = 0;
    std::string name;

    friend bool operator==(const Display&, const Display&) = default;
};

/// The active displays in the server's order, the main one first. One that mirrors another is
/// listed after that.
using DisplaySnapshot = std::vector<Display>;

/// The displays of the session. Main thread only.
class Displays {
public:
    virtual ~Displays() = default;

    /// As they are now: what the display server has told by then counts, handled or not. Valid
    /// until the next call.
    virtual const DisplaySnapshot& snapshot() const = 0;

    /// Calls back on the main loop after displays came, went, moved or changed their size.
    virtual Registration onChange(std::function<void()> callback) = 0;
};

/// The display of that identifier; all zero when there is none.
inline Display displayWithId(const DisplaySnapshot& displays, DisplayId id) {
    for (const auto& display : displays) {
        if (display.id == id && id != kNoDisplay) {
            return display;
        }
    }
    return {};
}

/// The main display; all zero without one.
inline Display mainDisplayOf(const DisplaySnapshot& displays) {
    return displays.empty() ? Display{} : displays.front();
}

} // namespace panewright
