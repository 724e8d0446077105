#pragma once

#include "menubar/menu.h"

#include <functional>

namespace panewright {

/// Gives the menu to status bars that draw it themselves.
class MenuExporter {
public:
    virtual ~MenuExporter() = default;

    /// `bringUpToDate` gives the menu as it is now; it is called on the main loop whenever a bar is
    /// about to show it, and what it gives must live until the next call. The action of the item
    /// that the user chooses is called on the main loop.
    virtual void exportMenu(std::function<const Menu&()> bringUpToDate) = 0;
};

} // namespace panewright
