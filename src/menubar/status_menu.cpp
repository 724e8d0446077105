#include "menubar/status_menu.h"

#include <utility>

namespace panewright {
namespace {

std::shared_ptr<MenuItem> makeItem(std::string title, std::function<void()> action) {
    auto item = std::make_shared<MenuItem>();
    item->title = std::move(title);
    item->action = std::move(action);
    return item;
}

} // namespace

StatusMenu::StatusMenu(const TextServices& text, const Actions& actions)
    : saveItem(makeItem(text.localized("&Save Current Window…"), actions.saveWindowPosition)),
      moveToNextDisplayItem(
          makeItem(text.localized("&Move to Next Display"), actions.moveToNextDisplay)),
      startupItem(makeItem(text.localized("Start at &Login"), actions.runAtStartup)) {
    startupItem->isCheckable = true;
    menu.items = {saveItem,
                  moveToNextDisplayItem,
                  MenuItem::separatorItem(),
                  makeItem(text.localized("S&ettings…"), actions.settings),
                  startupItem,
                  MenuItem::separatorItem(),
                  makeItem(text.localized("&Quit Panewright"), actions.quit)};
}

} // namespace panewright
