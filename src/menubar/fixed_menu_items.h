#pragma once

#include "menubar/menu.h"
#include "platform/program_information.h"
#include "platform/text_services.h"
#include "services/product_pages.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace panewright {

class CarbonKeyEvent;
class ShortcutText;

/// The items that the status menu always has, in the user's language.
struct FixedMenuItems {
    struct Actions {
        std::function<void()> saveWindowPosition;
        std::function<void()> moveToNextDisplay;
        std::function<void()> settings;
        std::function<void()> runAtStartup;
        std::function<void()> restoreWindowStates;
        std::function<void()> checkForUpdates;
        std::function<void()> sendFeedback;
        std::function<void()> openFAQ;
        std::function<void()> crash;
        std::function<void()> quit;
    };

    /// Where the program has no site the item for feedback is left out.
    FixedMenuItems(const TextServices& text, const ProgramInformation& program,
                   const ProductPages& pages, const Actions& actions);

    void setStartsAtLogin(bool on) const { startupItem->isChecked = on; }
    /// The key that moves the window to the next display, beside that item; null for none.
    void showMoveToNextDisplayKey(const CarbonKeyEvent* key, const ShortcutText& text) const;
    /// Whether that item can be chosen: not with one display.
    void showDisplayCount(std::size_t count) const {
        moveToNextDisplayItem->isEnabled = count != 1;
    }

    std::shared_ptr<MenuItem> saveItem;
    std::shared_ptr<MenuItem> moveToNextDisplayItem;
    /// Checked while the program starts at login.
    std::shared_ptr<MenuItem> startupItem;
    /// For trying out the reporting of crashes; not for users, whose menu the controller takes it
    /// out of.
    std::shared_ptr<MenuItem> crashItem;
    std::shared_ptr<MenuItem> versionItem;

    /// What stands before the saved states, and after them.
    MenuItems before;
    MenuItems after;
};

} // namespace panewright
