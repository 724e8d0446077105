#include "menubar/status_menu.h"

#include <utility>

namespace panewright {
namespace {

std::shared_ptr<MenuItem> makeItem(std::string title, std::function<void()> action) {
    auto item = std::make_shared<MenuItem>();
    item->title = std::move(title);
    item->action = [action = std::move(action)](const MenuChoice&) { action(); };
    return item;
}

} // namespace

StatusMenu::StatusMenu(const TextServices& text, const Actions& actions)
    : saveItem(makeItem(text.localized("Save Current Window…"), actions.saveWindowPosition)),
      moveToNextDisplayItem(
          makeItem(text.localized("Move to Next Display"), actions.moveToNextDisplay)),
      startupItem(makeItem(text.localized("Start at Login"), actions.runAtStartup)) {
    startupItem->isCheckable = true;
    menu->insertItems({saveItem, moveToNextDisplayItem, separatorItemWithTag(0),
                       makeItem(text.localized("Settings…"), actions.settings), startupItem,
                       separatorItemWithTag(0),
                       makeItem(text.localized("Quit Panewright"), actions.quit)},
                      0);
}

} // namespace panewright
