#pragma once

#include "base/geometry.h"
#include "platform/displays.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// One screen of the windowing toolkit, with the device-description value "NSScreenNumber" that
/// says which display it is.
struct Screen {
    std::int64_t screenNumber = 0;
    std::string name;
};

/// One display, by its identifier. Caches nothing: each query asks the display server again, so a
/// display that is gone answers with zeros. Global points: origin top-left of the main display, y
/// downwards.
class QuartzDisplay {
public:
    /// As many displays as are ever asked for, and the length of the list that displays() gives,
    /// however few there are.
    static constexpr std::size_t kMaxDisplays = 48;

    /// The port must outlive the display.
    QuartzDisplay(const Displays& port, DisplayId displayId)
        : port_(&port), displayId_(displayId) {}

    /// The display that holds the point, or shares an area with the rectangle; nil if none does.
    /// Where several do, the one that the first of them mirrors (itself if it mirrors none).
    static std::optional<QuartzDisplay> withPoint(const Displays& port, Point point);
    static std::optional<QuartzDisplay> withRect(const Displays& port, const Rect& rect);

    static std::size_t numberOfDisplays(const Displays& port);

    /// kMaxDisplays entries: the active displays in the server's order, then kNoDisplay.
    static std::vector<QuartzDisplay> displays(const Displays& port);

    /// One for each screen of the toolkit, the screen with the menu bar first; displays that mirror
    /// each other are one screen.
    static std::vector<QuartzDisplay> screens(const Displays& port);

    DisplayId displayId() const { return displayId_; }
    void setDisplayId(DisplayId displayId) { displayId_ = displayId; }

    Rect bounds() const { return displayNow().bounds; }
    Size pixelSize() const { return displayNow().pixelSize; }

    /// The first screen of the toolkit that shows this display; nil if none does.
    std::optional<Screen> screen() const;

    /// Decimal numbers of the hardware, and the three joined as serial_vendor_unit: an identity
    /// that outlives the identifier.
    std::string serialNumber() const;
    std::string vendorNumber() const;
    std::string unitNumber() const;
    std::string serialAndVendorAndUnit() const;

    /// A nil display equals one with kNoDisplay.
    bool isEqualToDisplay(const std::optional<QuartzDisplay>& other) const;

    std::string description() const;

private:
    Display displayNow() const { return displayWithId(port_->snapshot(), displayId_); }

    const Displays* port_;
    DisplayId displayId_;
};

/// Bounds and pixel size of a display that may be nil, which has zeros.
Rect boundsOf(const std::optional<QuartzDisplay>& display);
Size pixelSizeOf(const std::optional<QuartzDisplay>& display);

} // namespace panewright
