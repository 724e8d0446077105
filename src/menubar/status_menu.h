#pragma once

#include "base/registration.h"
#include "menubar/fixed_menu_items.h"
#include "menubar/focus_tracking.h"
#include "menubar/menu.h"
#include "menubar/state_menu_items.h"
#include "platform/displays.h"
#include "platform/hot_keys.h"
#include "platform/main_loop.h"
#include "platform/status_item.h"
#include "platform/text_services.h"
#include "services/tracking.h"
#include "shortcuts/shortcut_text.h"
#include "ui/store_troubles.h"

#include <functional>
#include <memory>

namespace panewright {

class Model;

/// The tag of all that stands in the menu only while it is open, and of nothing else.
inline constexpr std::int64_t kInsertedItemTag = 210;
/// The tag of the line about the store, which stands below that, and of its separator.
inline constexpr std::int64_t kStoreTroubleTag = 211;

/// The status item's menu: its fixed items, and between these the saved states, which are put in
/// when the menu opens and go half a second after it has closed. Main thread only.
class StatusMenu {
public:
    /// All of it must outlive the menu.
    struct Services {
        ApplicationIcons& icons;
        const Displays& displays;
        const HotKeys& hotKeys;
        Images& images;
        MainLoop& mainLoop;
        const TextServices& text;
        ShortcutText shortcutText;
        Tracking tracking;
        const Model& model;
        StoreTroubles& storeTroubles;
        FocusTracking& focus;
    };
    struct Actions {
        using OnState = std::function<void(const std::shared_ptr<WindowState>&)>;

        std::function<void()> addEventHandlers;
        OnState applyWindowStateToActiveWindow;
        OnState editWindowState;
        OnState removeWindowState;
    };

    StatusMenu(const Services& services, Actions actions, FixedMenuItems fixedItems);

    const Menu& statusItemMenu() const { return *menu_; }
    const FixedMenuItems& fixedItems() const { return fixed_; }

    /// To be called when the menu is about to open: brings what it shows, and the hot keys, up to
    /// date with the application that is frontmost then. The right button, or Option held, puts the
    /// states of applications one below the other instead of in a submenu for each application.
    void menuNeedsUpdate(const StatusItemClick& click);
    /// To be called when it has closed.
    void menuDidClose();
    /// Takes out what is there only while the menu is open.
    void removeMenuItems();

    /// Puts the states in, in place of those that are there.
    void rebuildMenuFlat(bool flat);

    /// Applies the item's state; with Option edits it, with Option and Shift deletes it and the
    /// item.
    void onMenuItemClicked(MenuItem& item, const MenuChoice& choice);

private:
    /// Below the states that end before the index.
    void showStoreTrouble(std::size_t index);
    std::shared_ptr<MenuItem> helpItem() const;

    Services services_;
    Actions actions_;
    FixedMenuItems fixed_;
    const std::unique_ptr<Menu> menu_ = std::make_unique<Menu>();
    StateMenuItems stateItems_;
    Registration destroyMenuTimer_;
};

} // namespace panewright
