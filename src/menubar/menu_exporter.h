#pragma once

#include "base/registration.h"
#include "menubar/menu.h"

#include <cstdint>
#include <functional>

namespace panewright {

/// Gives the menu to status bars that draw it themselves. Main thread only; handlers come on the
/// main loop.
class MenuExporter {
public:
    struct Handlers {
        /// A bar is about to show the menu, which is to be brought up to date; told with what is
        /// held, in the application's form. An item that is in the menu then must live until the
        /// next call, and one that the user chooses until its action has been called.
        std::function<void(std::uint64_t modifierFlags)> aboutToShow;
        /// The bar does not show it any more. Not every bar tells.
        std::function<void()> closed;
    };

    virtual ~MenuExporter() = default;

    /// Bars have the menu until the registration is released; it must live as long.
    virtual Registration exportMenu(const Menu& menu, Handlers handlers) = 0;
};

} // namespace panewright
