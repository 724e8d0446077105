#include "desktop/dbus/exported_menu.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(ExportedMenu, ShowsThePanelTheMenuAsItIsAndDoesWhatIsChosen) {
    Menu menu;
    int chosen = 0;
    const auto item = std::make_shared<MenuItem>();
    item->title = "&Save “a_b” && more";
    item->action = [&] { ++chosen; };
    menu.items = {MenuItem::separatorItem(), item};
    ExportedMenu exported;
    exported.exportMenu([&]() -> const Menu& { return menu; });
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
    EXPECT_EQ(layout()[1].value("label"), "_Save “a__b” & more");
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
}

} // namespace
} // namespace panewright
