#pragma once

#include "menubar/menu.h"

#include <functional>

namespace panewright {

/// Gives the menu to status bars that draw it themselves. Main thread only; handlers come on the
/// main loop.
class MenuExporter {
public:
    struct Handlers {
        /// A bar is about to show the menu: gives it as it is now. It must live until the next
        /// call, and an item that the user chooses until its action has been called.
        std::function<const Menu&()> bringUpToDate;
        /// The bar does not show it any more. Not every bar tells.
        std::function<void()> closed;
    };

    virtual ~MenuExporter() = default;

    virtual void exportMenu(Handlers handlers) = 0;
};

} // namespace panewright
