#pragma once

#include "base/registration.h"

#include <functional>

namespace panewright {

/// The desktop's tray for icons that are windows (System Tray Protocol, "XEmbed"), which comes and
/// goes with the panel that offers it. Main thread only.
class SystemTray {
public:
    virtual ~SystemTray() = default;

    virtual bool isPresent() const = 0;

    /// Calls back on the main loop after a tray came, went or was replaced.
    virtual Registration onChange(std::function<void()> callback) = 0;
};

} // namespace panewright
