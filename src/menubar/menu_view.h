#pragma once

#include "menubar/menu.h"
#include "ui/popover.h"

namespace panewright {

/// Shows menus.
class MenuView {
public:
    virtual ~MenuView() = default;

    /// Opens the menu as it is now at the anchor and inside its work area, in the place of one that
    /// is open. Returns at once, or when the menu has closed. The action of the item that the user
    /// chooses is called after that, on the main loop.
    virtual void popUp(const Menu& menu, const PopoverAnchor& anchor) = 0;
};

} // namespace panewright
