#include "system/program.h"

#include <gtest/gtest.h>

namespace panewright::test {
namespace {

TEST(DesktopWindow, IsNotPlacedNorIsAnyOtherWhileItIsActive) {
    const Desktop desktop;
    const TestClient window(desktop.display());
    const TestClient icons(desktop.display(), {.client = {300, 200, 500, 400}});
    desktop.x().setProperty(icons.window(), "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                            {desktop.x().atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    desktop.x().synchronize();
    window.activate();
    const Program program(desktop);
    icons.activate();
    const Frame before = outerFrame(desktop.x(), window.window());
    const Frame beforeIcons = outerFrame(desktop.x(), icons.window());
    desktop.keyboard().tap(KEY_LEFTALT, KEY_1);
    window.activate();
    EXPECT_EQ(outerFrame(desktop.x(), window.window()), before);
    expectAfter(KEY_2, kLarge, desktop, window.window()); // so the press before has been handled
    EXPECT_EQ(outerFrame(desktop.x(), icons.window()), beforeIcons);
}

} // namespace
} // namespace panewright::test
