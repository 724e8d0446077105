#pragma once

#include "base/observer_list.h"
#include "menubar/menu_exporter.h"
#include "menubar/menu_view.h"
#include "platform/status_item.h"

#include <algorithm>
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
    void exportMenu(std::function<const Menu&()> source) override {
        bringUpToDate = std::move(source);
    }

    std::function<const Menu&()> bringUpToDate;
};

/// Keeps the menu that was opened last.
class MemoryMenuView : public MenuView {
public:
    void popUp(const Menu& menu, const PopoverAnchor& anchor) override {
        opened = menu;
        openedAt = anchor;
    }

    /// Chooses the item with that title; false when the menu has none, or it cannot be chosen.
    bool choose(std::string_view title) const {
        const auto item = std::find_if(opened.items.begin(), opened.items.end(),
                                       [&](const auto& each) { return each->title == title; });
        if (item == opened.items.end() || !(*item)->action || !(*item)->isEnabled) {
            return false;
        }
        (*item)->action();
        return true;
    }

    Menu opened;
    PopoverAnchor openedAt;
};

} // namespace panewright
