#pragma once

#include "base/geometry.h"
#include "base/registration.h"

#include <functional>
#include <optional>

namespace panewright {

/// The desktop's tray for icons that are windows (System Tray Protocol, "XEmbed"), which comes and
/// goes with the panel that offers it. Main thread only.
class SystemTray {
public:
    virtual ~SystemTray() = default;

    virtual bool isPresent() const = 0;

    /// Calls back on the main loop after a tray came, went or was replaced.
    virtual Registration onChange(std::function<void()> callback) = 0;

    /// How bright the panel is at a point that shows none of our icon, from 0 (black) to 1 (white).
    /// Global pixels. Nil when it cannot be seen.
    virtual std::optional<double> brightnessAt(Point point) const = 0;
};

} // namespace panewright
