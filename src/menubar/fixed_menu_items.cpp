#include "menubar/fixed_menu_items.h"

#include "menubar/menu_shortcut.h"
#include "ui/shortcut_remark.h"
#include "ui/version_text.h"

#include <string>
#include <utility>

namespace panewright {
namespace {

std::shared_ptr<MenuItem> makeItem(std::string title, std::function<void()> action) {
    auto item = std::make_shared<MenuItem>();
    item->title = std::move(title);
    if (action) {
        item->action = [action = std::move(action)](const MenuChoice&) { action(); };
    }
    return item;
}

void addGroup(MenuItems& items, const MenuItems& group) {
    if (!items.empty()) {
        items.push_back(separatorItemWithTag(0));
    }
    items.insert(items.end(), group.begin(), group.end());
}

} // namespace

FixedMenuItems::FixedMenuItems(const TextServices& text, const ProgramInformation& program,
                               const ProductPages& pages, const Actions& actions)
    : saveItem(makeItem(text.localized("Save Current Window…"), actions.saveWindowPosition)),
      moveToNextDisplayItem(makeItem(moveToNextDisplayTitle(text), actions.moveToNextDisplay)),
      startupItem(makeItem(text.localized("Start at Login"), actions.runAtStartup)),
      crashItem(makeItem(text.localized("Crash"), actions.crash)),
      versionItem(makeItem(versionText(program, text), nullptr)),
      before{saveItem, moveToNextDisplayItem,
             makeItem(text.localized("Settings…"), actions.settings)} {
    startupItem->isCheckable = true;
    addGroup(after, {startupItem, makeItem(text.localized("Restore Built-in States"),
                                           actions.restoreWindowStates)});
    const auto updateItem = makeItem(text.localized("Check for Updates…"), actions.checkForUpdates);
    MenuItems service{crashItem, updateItem};
    if (pages.hasWebsite()) {
        service.push_back(makeItem(text.localized("Send Feedback…"), actions.sendFeedback));
    }
    service.push_back(makeItem(text.localized("FAQ"), actions.openFAQ));
    service.push_back(versionItem);
    addGroup(after, service);
    addGroup(after, {makeItem(text.localized("Quit Panewright"), actions.quit)});
}

void FixedMenuItems::showMoveToNextDisplayKey(const CarbonKeyEvent* key,
                                              const ShortcutText& text) const {
    moveToNextDisplayItem->shortcut = key ? menuShortcutOf(*key, text) : MenuShortcut{};
}

} // namespace panewright
