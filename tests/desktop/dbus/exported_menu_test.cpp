#include "desktop/dbus/exported_menu.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(ExportedMenu, ShowsThePanelTheMenuAsItIsAndDoesWhatIsChosen) {
    Menu menu;
    int chosen = 0;
    const auto item = std::make_shared<MenuItem>();
    item->title = "Save “a_b” & more";
    item->action = [&](const MenuChoice& choice) { chosen += choice.modifierFlags == 0x80000; };
    menu.insertItems({separatorItemWithTag(0), item}, 0);
    int timesClosed = 0;
    ExportedMenu exported([] { return std::uint64_t{0x80000}; });
    const auto registration =
        exported.exportMenu(menu, {[](std::uint64_t /*held*/) {}, [&] { ++timesClosed; }});
    const auto layout = [&] {
        BusMenuItem root;
        exported.GetLayout(0, -1, {}, root);
        QList<QVariantMap> lines;
        for (const auto& child : root.children) {
            lines.append(child.value<BusMenuItem>().properties);
        }
        return lines;
    };
    ASSERT_EQ(layout().size(), 2);
    EXPECT_EQ(layout()[0].value("type"), "separator");
    EXPECT_EQ(layout()[1].value("label"), "Save “a__b” & more");
    exported.Event(2, "clicked", {}, 0);
    exported.Event(1, "clicked", {}, 0);
    exported.Event(3, "clicked", {}, 0);
    EXPECT_EQ(chosen, 1);

    item->isEnabled = false;
    item->isCheckable = item->isChecked = true;
    EXPECT_TRUE(exported.AboutToShow(0));
    EXPECT_FALSE(layout()[1].value("enabled").toBool());
    EXPECT_EQ(layout()[1].value("toggle-state"), 1);
    exported.Event(2, "clicked", {}, 0);
    EXPECT_EQ(chosen, 1);

    item->isEnabled = true;
    const auto opener = std::make_shared<MenuItem>();
    opener->submenu = std::make_shared<Menu>();
    removeFromContainingMenu(*item);
    opener->submenu->insertItems({item}, 0);
    menu.insertItems({opener}, menu.items().size());
    EXPECT_TRUE(exported.AboutToShow(0));
    EXPECT_EQ(layout()[1].value("children-display"), "submenu");
    BusMenuItem submenu;
    exported.GetLayout(3, -1, {}, submenu);
    ASSERT_EQ(submenu.children.size(), 1);
    EXPECT_EQ(submenu.children[0].value<BusMenuItem>().id, 2) << "the number that it had";
    exported.Event(2, "clicked", {}, 0);
    EXPECT_EQ(chosen, 2);
    exported.Event(0, "closed", {}, 0);
    EXPECT_EQ(timesClosed, 1);
}

} // namespace
} // namespace panewright
