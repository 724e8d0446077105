#pragma once

#include "desktop/shared/screen_brightness.h"
#include "desktop/x11/x_connection.h"

namespace panewright {

/// Pixels of the root window with all that is shown on it, as luma of ITU-R BT.709. A screen whose
/// pixels are no true colours is not seen.
class XScreenBrightness : public ScreenBrightness {
public:
    explicit XScreenBrightness(XConnection& connection) : connection_(connection) {}

    std::optional<double> brightnessAt(Point point) const override;

private:
    XConnection& connection_;
};

} // namespace panewright
