#pragma once

#include "menubar/menu.h"
#include "model/window_state.h"
#include "platform/text_services.h"
#include "platform/workspace.h"
#include "shortcuts/shortcut_text.h"
#include "ui/window_state_images.h"

#include <functional>
#include <memory>
#include <optional>

namespace panewright {

class Model;

/// Makes the menu's items for saved states: which states there are, in which order, with which
/// picture and shortcut. They have no tag: StatusMenu gives one to all that it puts in.
class StateMenuItems {
public:
    /// All of it must outlive this.
    struct Services {
        ApplicationIcons& icons;
        Images& images;
        const TextServices& text;
        ShortcutText shortcutText;
        const Model& model;
    };
    using OnClick = std::function<void(MenuItem&, const MenuChoice&)>;

    /// `clicked` is called when an item of a state is chosen; the items live no longer than this.
    StateMenuItems(const Services& services, OnClick clicked);

    /// For each opening of the menu: icons that were missing are sought again.
    void forgetIcons() { images_.forgetIcons(); }

    /// The states that apply while the application is frontmost, by title, each with its hot key
    /// unless that is another one's.
    MenuItems quickItems(const std::optional<RunningApplication>& frontmost);

    /// The states of applications below a title, empty if there are none: flat by name, or grouped
    /// in a submenu for each application, by its name. An application whose first state knows no
    /// name for it has no submenu.
    MenuItems applicationItems(bool flat);

    /// An item for the application of the states, with a submenu of them in their order, which
    /// begins with the application's bundle identifier if that is included. There must be one.
    std::shared_ptr<MenuItem> itemWithMenuForKeyEvents(const WindowStateArray& states,
                                                       bool includeAppBundle);

private:
    MenuItems flatItems(const WindowStates& states);
    MenuItems groupedItems(const WindowStates& states);
    std::shared_ptr<MenuItem> stateItem(const std::shared_ptr<WindowState>& state, ImagePtr image);

    Services services_;
    OnClick clicked_;
    WindowStateImages images_;
};

} // namespace panewright
