#pragma once

#include "base/geometry.h"
#include "menubar/menu.h"

namespace panewright {

/// Shows menus.
class MenuView {
public:
    virtual ~MenuView() = default;

    /// Opens the menu as it is now beside the anchor (global points), in the place of one that is
    /// open, and returns at once. The action of the item that the user chooses is called after the
    /// menu has closed.
    virtual void popUp(const Menu& menu, const Rect& anchor) = 0;
};

} // namespace panewright
