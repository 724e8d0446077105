#pragma once

#include "menubar/menu.h"
#include "platform/text_services.h"

#include <functional>
#include <memory>

namespace panewright {

/// The status item's menu and those of its items that change.
struct StatusMenu {
    struct Actions {
        std::function<void()> saveWindowPosition;
        std::function<void()> moveToNextDisplay;
        std::function<void()> settings;
        std::function<void()> runAtStartup;
        std::function<void()> quit;
    };

    StatusMenu(const TextServices& text, const Actions& actions);

    std::shared_ptr<MenuItem> saveItem;
    std::shared_ptr<MenuItem> moveToNextDisplayItem;
    /// Checked while the program starts at login.
    std::shared_ptr<MenuItem> startupItem;
    const std::shared_ptr<Menu> menu = std::make_shared<Menu>();
};

} // namespace panewright
