#pragma once

#include "menubar/menu.h"
#include "platform/key_event.h"
#include "ui/popover.h"

#include <functional>

namespace panewright {

/// Shows menus. It decides nothing. Main thread only; handlers come on the main loop.
class MenuView {
public:
    /// What the view tells of the menu that is open.
    struct Handlers {
        /// The menu has closed, however that came: called once for each popUp(), also for a menu
        /// that could not be opened. An item that was chosen is not affected.
        std::function<void()> closed;
        /// A key that does nothing in a menu was pressed. True when it is a hot key's: the hot key
        /// does its work after the event that is being handled, and the view closes the menu
        /// before that.
        std::function<bool(const KeyEvent&)> hotKeyPressed;
    };

    virtual ~MenuView() = default;

    /// Opens the menu as it is now at the anchor and inside its work area, in the place of one that
    /// is open, which is told of first. The menu must live until it has closed, and what it shows
    /// stays as it was. What is in a submenu is looked at when that opens. Returns at once.
    ///
    /// The action of the item that the user chooses is called after the menu has closed, on the
    /// main loop, with what was held at the choice. The item lives until then.
    virtual void popUp(const Menu& menu, const PopoverAnchor& anchor, Handlers handlers) = 0;

    virtual bool isOpen() const = 0;

    /// Closes the menu and tells of it before returning; nothing while none is open.
    virtual void close() = 0;
};

} // namespace panewright
