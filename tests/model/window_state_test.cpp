#include "model/window_state.h"

#include "desktop/memory/memory_desktop.h"
#include "shortcuts/shortcut_text.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(WindowState, DescribesItselfForTracking) {
    MemoryDesktop desktop;
    desktop.keyboardLayout.setKeys({{18, "1"}});
    const ShortcutText text{desktop.keyboardLayout, desktop.text};
    const auto state = WindowState::init();
    EventAttributes expected{{"IsDefault", 0}, {"IsGlobal", 0}, {"PrefersDisplay", 0}};
    EXPECT_EQ(state->attributesForTracking(text), expected);

    state->setIsDefault(true);
    state->setIsGlobal(true);
    state->setPrefersDisplay(true);
    state->setWindowStateName("Left");
    state->setAppBundleId("org.example.Editor");
    state->setAppName("Editor");
    state->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(18, 0x80000));
    expected = {{"IsDefault", 1},
                {"IsGlobal", 1},
                {"PrefersDisplay", 1},
                {"WindowStateName", "Left"},
                {"DefaultShortcutName", "Left"},
                {"AppBundleId", "org.example.Editor"},
                {"AppName", "Editor"},
                {"KeyboardShortcut", "⌥1"}};
    EXPECT_EQ(state->attributesForTracking(text), expected);
    desktop.keyboardLayout.setBroken(true);
    expected["KeyboardShortcut"] = "Exception";
    EXPECT_EQ(state->attributesForTracking(text), expected);
}

} // namespace
} // namespace panewright
