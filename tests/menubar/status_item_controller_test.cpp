#include "app/app_delegate.h"

#include "desktop/memory/memory_desktop.h"
#include "menubar/hot_key_collisions.h"
#include "model/default_window_states.h"
#include "model/window_state.h"
#include "shortcuts/carbon_event_manager.h"
#include "support/print_geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr ProcessId kEditor = 42;
constexpr std::uint32_t kOption = 0x800;

class StatusItemControllerTest : public testing::Test {
protected:
    StatusItemControllerTest() {
        desktop_.displays.setDisplays({{.id = 1, .bounds = {0, 0, 1600, 900}}});
        desktop_.windows.addApplication({kEditor, "org.example.Editor", "Editor"});
        window_ = desktop_.windows.openWindow({.pid = kEditor, .frame = {100, 50, 800, 600}});
        desktop_.windows.activateWindow(window_);
        CarbonEventManager::setSharedManagerFactory([this] {
            return std::make_unique<CarbonEventManager>(CarbonEventManager::Services{
                desktop_.hotKeys, desktop_.mainLoop, desktop_.userDefaults});
        });
    }
    ~StatusItemControllerTest() override { CarbonEventManager::setSharedManagerFactory(nullptr); }

    void launch() {
        delegate_.applicationWillFinishLaunching();
        delegate_.applicationDidFinishLaunching();
    }
    bool press(std::uint32_t keyCode) {
        const bool taken = desktop_.hotKeys.press(keyCode, kOption);
        desktop_.mainLoop.runPending();
        return taken;
    }
    Rect frame() const { return desktop_.windows.find(window_)->frame; }

    MemoryDesktop desktop_;
    MemoryWindowId window_ = 0;
    AppDelegate delegate_{{desktop_.accessibility, desktop_.displays, desktop_.workspace,
                           desktop_.program, desktop_.beeper, Tracking(desktop_.analytics),
                           ShortcutText(desktop_.keyboardLayout, desktop_.text)},
                          makeDefaultWindowStates()};
};

TEST_F(StatusItemControllerTest, PutsTheFocusedWindowIntoTheStateOfThePressedKey) {
    EXPECT_EQ(AppDelegate::instance(), nullptr);
    launch();
    EXPECT_EQ(AppDelegate::instance(), &delegate_);
    const std::pair<std::uint32_t, Rect> frames[] = {{18, {0, 0, 1600, 900}},
                                                     {19, {80, 45, 1440, 810}},
                                                     {20, {160, 90, 1280, 720}},
                                                     {21, {280, 157.5, 1040, 585}}};
    for (const auto& [key, expected] : frames) {
        EXPECT_TRUE(press(key));
        EXPECT_EQ(frame(), expected);
    }
    EXPECT_EQ(desktop_.beeper.beeps, 0);
    ASSERT_THAT(desktop_.analytics.events, SizeIs(4));
    EXPECT_EQ(desktop_.analytics.events[1].name, "ApplyWindowState");
    EXPECT_EQ(desktop_.analytics.events[1].attributes.at("WindowStateName"),
              EventAttribute("Centered Large"));
}

TEST_F(StatusItemControllerTest, BeepsWhenThereIsNoWindowToPlace) {
    launch();
    desktop_.windows.closeWindow(window_);
    EXPECT_TRUE(press(19));
    EXPECT_EQ(desktop_.beeper.beeps, 1);
    EXPECT_THAT(desktop_.analytics.events, SizeIs(1)); // the attempt counts
}

TEST_F(StatusItemControllerTest, AsksForPermissionAndComesForwardWithoutIt) {
    launch();
    desktop_.accessibility.setTrusted(false);
    EXPECT_TRUE(press(19));
    EXPECT_EQ(frame(), (Rect{100, 50, 800, 600}));
    EXPECT_EQ(desktop_.accessibility.promptsShown(), 1);
    EXPECT_EQ(desktop_.windows.frontmost()->processIdentifier, MemoryDesktop::kOwnPid);
    EXPECT_EQ(desktop_.beeper.beeps, 0);
    EXPECT_THAT(desktop_.analytics.events, IsEmpty());
}

TEST(StatusItemControllerOnAnEmptyDesktop, InstallsHotKeysWithTheFirstApplication) {
    MemoryDesktop desktop;
    desktop.windows.addApplication({kEditor, "org.example.Editor", "Editor"});
    CarbonEventManager::setSharedManagerFactory([&] {
        return std::make_unique<CarbonEventManager>(
            CarbonEventManager::Services{desktop.hotKeys, desktop.mainLoop, desktop.userDefaults});
    });
    {
        AppDelegate delegate({desktop.accessibility, desktop.displays, desktop.workspace,
                              desktop.program, desktop.beeper, Tracking(desktop.analytics),
                              ShortcutText(desktop.keyboardLayout, desktop.text)},
                             makeDefaultWindowStates());
        delegate.applicationWillFinishLaunching();
        delegate.applicationDidFinishLaunching();
        EXPECT_EQ(desktop.hotKeys.registeredCount(), 0U);
        desktop.windows.activateApplication(MemoryDesktop::kOwnPid);
        EXPECT_EQ(desktop.hotKeys.registeredCount(), 0U);
        desktop.windows.activateApplication(kEditor);
        EXPECT_EQ(desktop.hotKeys.registeredCount(), 4U);
    }
    CarbonEventManager::setSharedManagerFactory(nullptr);
}

TEST(HotKeyCollisions, LetTheLastOfEqualShortcutsHold) {
    const auto state = [](std::uint64_t keyCode, std::uint64_t flags) {
        auto made = WindowState::init();
        made->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(keyCode, flags));
        return made;
    };
    const auto weak = state(18, 0x80000);
    const auto other = state(19, 0x80000);
    const auto strong = state(18, 0x80000);
    const auto bare = WindowState::init();
    const auto anotherBare = WindowState::init();
    EXPECT_THAT(statesWithoutCollisions({{weak, other, bare}, {anotherBare}, {strong}}),
                ElementsAre(anotherBare, strong, other));
    EXPECT_EQ(combinationNumber(*weak), 0x80012U);
    EXPECT_EQ(combinationNumber(*bare), 0U);
    // The sum is what collides, so a key code past the flags' lowest bit can collide with them.
    EXPECT_THAT(statesWithoutCollisions({{state(0x20000 + 18, 0)}, {strong}, {state(18, 0x20000)}}),
                SizeIs(2));
}

} // namespace
} // namespace panewright
