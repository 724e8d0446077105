#include "system/program.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace panewright::test {
namespace {

TEST(DesktopWindow, IsNotPlacedNorIsAnyOtherWhileItIsActive) {
    const Desktop desktop;
    const TestClient window(desktop.display());
    const TestClient icons(desktop.display(), {.client = {300, 200, 500, 400}});
    desktop.x().setProperty(icons.window(), "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                            {desktop.x().atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    window.activate();
    const Program program(desktop);
    icons.activate();
    const Frame before = outerFrame(desktop.x(), window.window());
    const Frame beforeIcons = outerFrame(desktop.x(), icons.window());
    desktop.keyboard().tap(KEY_LEFTALT, KEY_1);
    window.activate();
    EXPECT_EQ(outerFrame(desktop.x(), window.window()), before);
    const Frame large{.x = 80, .y = 45, .width = 1440, .height = 810};
    desktop.keyboard().tap(KEY_LEFTALT, KEY_2);
    EXPECT_EQ(frameOnceItIs(large, desktop.x(), window.window()), large);
    EXPECT_EQ(outerFrame(desktop.x(), icons.window()), beforeIcons);
}

} // namespace
} // namespace panewright::test
