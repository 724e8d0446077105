#pragma once

#include "base/observer_list.h"
#include "menubar/menu_exporter.h"
#include "menubar/menu_view.h"
#include "platform/status_item.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace panewright {

/// A status item that a test clicks.
class MemoryStatusItem : public StatusItem {
public:
    void show(const StatusItemLook& look,
              std::function<void(const StatusItemClick&)> clicked) override {
        shown = look;
        clicked_ = std::move(clicked);
    }
    bool isShown() const override { return hasBar_; }
    Registration onShownChange(std::function<void()> callback) override {
        return shownChanged_.add(std::move(callback));
    }
    std::optional<Rect> frame() const override { return place; }

    /// Whether the desktop has a status bar; it has at first.
    void setHasBar(bool hasBar) {
        hasBar_ = hasBar;
        shownChanged_.notify();
    }

    void click(const StatusItemClick& click = {}) const { clicked_(click); }

    std::optional<StatusItemLook> shown;
    std::optional<Rect> place;

private:
    bool hasBar_ = true;
    ObserverList<> shownChanged_;
    std::function<void(const StatusItemClick&)> clicked_;
};

/// Gives the menu as a status bar would draw it.
class MemoryMenuExporter : public MenuExporter {
public:
    Registration exportMenu(const Menu& menu, Handlers newHandlers) override {
        exported = &menu;
        handlers = std::move(newHandlers);
        return Registration([this] {
            exported = nullptr;
            handlers = {};
        });
    }

    const Menu* exported = nullptr;
    Handlers handlers;
};

/// A menu that a test uses as a person would.
class MemoryMenuView : public MenuView {
public:
    void popUp(const Menu& menu, const PopoverAnchor& anchor, Handlers handlers) override {
        close();
        open_ = &menu;
        openedAt = anchor;
        handlers_ = std::move(handlers);
    }
    bool isOpen() const override { return open_ != nullptr; }
    void close() override {
        open_ = nullptr;
        if (const auto closed = std::exchange(handlers_, {}).closed) {
            closed();
        }
    }

    /// The open menu, or the submenu of that title in it; null if there is none.
    const Menu* shown(std::string_view submenu = {}) const {
        const auto opener = submenu.empty() ? nullptr : find(open_, submenu);
        return submenu.empty() ? open_ : opener ? opener->submenu.get() : nullptr;
    }

    /// Chooses the item with that title in the open menu, or in a submenu of it, with these
    /// modifiers held (in the application's form), which closes the menu. False when there is none,
    /// or it cannot be chosen.
    bool choose(std::string_view title, std::uint64_t modifierFlags = 0,
                std::string_view submenu = {}) {
        const auto item = find(shown(submenu), title);
        if (!item || !item->canBeChosen() || !item->action) {
            return false;
        }
        close();
        item->action({modifierFlags});
        return true;
    }

    /// Presses a key that does nothing in a menu. True when it was a hot key's.
    bool press(const KeyEvent& key) {
        const bool isHotKey = handlers_.hotKeyPressed && handlers_.hotKeyPressed(key);
        if (isHotKey) {
            close();
        }
        return isHotKey;
    }

    PopoverAnchor openedAt;

private:
    static std::shared_ptr<MenuItem> find(const Menu* menu, std::string_view title) {
        for (const auto& item : menu ? menu->items() : MenuItems()) {
            if (item->title == title) {
                return item;
            }
        }
        return nullptr;
    }

    const Menu* open_ = nullptr;
    Handlers handlers_;
};

} // namespace panewright
