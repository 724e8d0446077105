#include "model/window_state.h"

#include "archive/keyed_archiver.h"
#include "archive/keyed_unarchiver.h"
#include "desktop/memory/memory_desktop.h"
#include "model/default_window_states.h"
#include "model/window_state_applier.h"
#include "shortcuts/carbon_event_manager.h"
#include "shortcuts/shortcut_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WindowStateTest : public testing::Test {
protected:
    WindowStateTest() {
        desktop_.keyboardLayout.setKeys({{18, "1"}});
        CarbonEventManager::setSharedManagerFactory([this] {
            return std::make_unique<CarbonEventManager>(CarbonEventManager::Services{
                desktop_.hotKeys, desktop_.mainLoop, desktop_.userDefaults});
        });
    }
    ~WindowStateTest() override { CarbonEventManager::setSharedManagerFactory(nullptr); }

    EventAttributes attributesOf(const WindowState& state) {
        return state.attributesForTracking(text_);
    }

    MemoryDesktop desktop_;
    ShortcutText text_{desktop_.keyboardLayout, desktop_.text};
};

struct RecordingApplier : WindowStateApplier {
    void applyWindowStateToActiveWindow(const std::shared_ptr<WindowState>& state) override {
        applied.push_back(state);
    }

    std::vector<std::shared_ptr<WindowState>> applied;
};

TEST_F(WindowStateTest, ReachesWhatAppliesStatesWhenItsHotKeyIsPressed) {
    const auto state = makeDefaultWindowStates().front();
    state->installKeyEvent();
    const auto press = [this] {
        desktop_.hotKeys.press(18, 0x800);
        desktop_.mainLoop.runPending();
    };
    press(); // before launch has finished nothing happens
    const auto applier = std::make_shared<RecordingApplier>();
    WindowState::setApplier(applier);
    press();
    EXPECT_THAT(applier->applied, ElementsAre(state));
    state->uninstallKeyEvent();
    press();
    EXPECT_THAT(applier->applied, ElementsAre(state));
    EXPECT_EQ(state->keyEvent()->target(), state);
}

TEST_F(WindowStateTest, InstallsNothingWithoutAHotKey) {
    const auto state = WindowState::init();
    state->installKeyEvent();
    state->uninstallKeyEvent();
    EXPECT_THAT(CarbonEventManager::sharedManager().keyEvents(), IsEmpty());
}

TEST_F(WindowStateTest, DescribesItselfForTracking) {
    const auto state = WindowState::init();
    EXPECT_EQ(attributesOf(*state),
              (EventAttributes{{"IsDefault", 0}, {"IsGlobal", 0}, {"PrefersDisplay", 0}}));

    state->setIsDefault(true);
    EXPECT_EQ(attributesOf(*state),
              (EventAttributes{{"IsDefault", 1}, {"IsGlobal", 0}, {"PrefersDisplay", 0}}));

    const auto full = WindowState::windowStateIsDefault(true, true);
    full->setPrefersDisplay(true);
    full->setWindowStateName("Left");
    full->setAppBundleId("org.example.Editor");
    full->setAppName("Editor");
    full->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(18, 0x80000));
    EventAttributes expected{{"IsDefault", 1},
                             {"IsGlobal", 1},
                             {"PrefersDisplay", 1},
                             {"WindowStateName", "Left"},
                             {"DefaultShortcutName", "Left"},
                             {"AppBundleId", "org.example.Editor"},
                             {"AppName", "Editor"},
                             {"KeyboardShortcut", "⌥1"}};
    EXPECT_EQ(attributesOf(*full), expected);
    desktop_.keyboardLayout.setBroken(true);
    expected["KeyboardShortcut"] = "Exception";
    EXPECT_EQ(attributesOf(*full), expected);
}

TEST(DefaultWindowStates, AreTheFourOfOption1To4) {
    const struct {
        const char* name;
        double scale;
        std::uint64_t keyCode;
    } expected[] = {{"Full Screen", 1, 18},
                    {"Centered Large", 0.9, 19},
                    {"Centered Medium", 0.8, 20},
                    {"Centered Small", 0.65, 21}};
    const auto states = makeDefaultWindowStates();
    ASSERT_EQ(states.size(), std::size(expected));
    for (std::size_t i = 0; i < states.size(); ++i) {
        EXPECT_EQ(states[i]->windowStateName(), expected[i].name);
        EXPECT_EQ(states[i]->windowScale(), (Size{expected[i].scale, expected[i].scale}));
        EXPECT_EQ(states[i]->keyEvent()->keyCode(), expected[i].keyCode);
        EXPECT_EQ(states[i]->keyEvent()->modifierFlags(), 0x80000U);
        EXPECT_TRUE(states[i]->isDefault() && states[i]->centerWindow());
        EXPECT_FALSE(states[i]->isGlobal());
    }
}

} // namespace
} // namespace panewright
