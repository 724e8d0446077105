#pragma once

#include "base/registration.h"

#include <functional>
#include <optional>

namespace panewright {

/// A place for icons that a panel offers, and that comes and goes with it. Main thread only.
class SystemTray {
public:
    virtual ~SystemTray() = default;

    /// Nil while nobody knows.
    virtual std::optional<bool> isPresent() const = 0;

    /// Whether a click on an item does nothing here but open the menu that the item exports.
    virtual bool onlyOpensMenus() const = 0;

    /// Calls back on the main loop after a tray came, went or was replaced, and once it is known
    /// whether there is one.
    virtual Registration onChange(std::function<void()> callback) = 0;
};

} // namespace panewright
