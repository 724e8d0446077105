#include "shortcuts/carbon_event_manager.h"

#include "desktop/memory/memory_hot_keys.h"
#include "desktop/memory/memory_main_loop.h"
#include "desktop/memory/memory_user_defaults.h"
#include "shortcuts/hot_key_id_counter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr std::uint64_t kOption = 0x80000;
constexpr std::uint32_t kHotKeyOption = 0x800;

struct Counter {
    void onKeyEvent(const std::shared_ptr<CarbonKeyEvent>& /*sender*/) { ++presses; }

    int presses = 0;
};

class CarbonEventManagerTest : public testing::Test {
protected:
    CarbonEventManagerTest() {
        CarbonEventManager::setSharedManagerFactory([this] {
            return std::make_unique<CarbonEventManager>(
                CarbonEventManager::Services{hotKeys_, loop_, userDefaults_});
        });
    }
    ~CarbonEventManagerTest() override { CarbonEventManager::setSharedManagerFactory(nullptr); }

    static std::shared_ptr<CarbonKeyEvent> event(std::uint64_t keyCode, std::uint64_t flags) {
        return CarbonKeyEvent::carbonEventWithKeyCode(keyCode, flags);
    }

    std::shared_ptr<CarbonKeyEvent> counted(std::uint64_t keyCode, std::uint64_t flags) {
        auto made = event(keyCode, flags);
        made->setTarget(counter_, &Counter::onKeyEvent);
        return made;
    }

    int pressesOf(std::uint32_t keyCode, std::uint32_t modifiers) {
        counter_->presses = 0;
        hotKeys_.press(keyCode, modifiers);
        loop_.runPending();
        return counter_->presses;
    }

    CarbonEventManager& manager() { return CarbonEventManager::sharedManager(); }
    static std::uint32_t idOf(const std::shared_ptr<CarbonKeyEvent>& e) {
        return e->registration().hotKeyId.id;
    }

    MemoryMainLoop loop_;
    MemoryHotKeys hotKeys_{loop_};
    MemoryUserDefaults userDefaults_;
    std::shared_ptr<Counter> counter_ = std::make_shared<Counter>();
};

TEST_F(CarbonEventManagerTest, ConvertsModifierFlagsBothWays) {
    const std::pair<std::uint64_t, std::uint64_t> pairs[] = {
        {0x100000, 0x100},  {0x20000, 0x200},     {0x80000, 0x800}, {0x40000, 0x1000},
        {0x1E0000, 0x1B00}, {0x800000, 0x800000}, {0, 0},
    };
    for (const auto& [application, hotKey] : pairs) {
        EXPECT_EQ(CarbonEventManager::cocoaToCarbonModifierFlags(application), hotKey);
        EXPECT_EQ(CarbonEventManager::carbonToCocoaModifierFlags(hotKey), application);
    }
    EXPECT_EQ(CarbonEventManager::cocoaToCarbonModifierFlags(0x1000F | 0x80000), 0x800U);
    EXPECT_EQ(CarbonEventManager::carbonToCocoaModifierFlags(0x400 | 0x800), 0x80000U);
}

TEST(HotKeyIdCounter, StartsAtOneAndSkipsTheLastNumber) {
    HotKeyIdCounter fresh;
    EXPECT_EQ(fresh.take(), 1U);
    EXPECT_EQ(fresh.take(), 2U);
    HotKeyIdCounter late(0xFFFFFFFE);
    EXPECT_EQ(late.take(), 0xFFFFFFFEU);
    EXPECT_EQ(late.take(), 0U);
    EXPECT_EQ(late.take(), 1U);
}

TEST_F(CarbonEventManagerTest, FiresOneEventForOnePressThoughEveryEventHasAHandler) {
    const auto one = counted(18, kOption);
    manager().addCarbonKeyEventsInArray({one, counted(19, kOption)});
    EXPECT_EQ(pressesOf(18, kHotKeyOption), 1);
    EXPECT_EQ(pressesOf(19, kHotKeyOption), 1);
    EXPECT_EQ(pressesOf(20, kHotKeyOption), 0);
    EXPECT_EQ(one->registration().eventSpec, (EventTypeSpec{0x6B657962, 5}));
    EXPECT_EQ(one->registration().hotKeyId.signature, 0U);
}

TEST_F(CarbonEventManagerTest, KeepsEachEventUnderTwoKeys) {
    const auto added = event(18, kOption);
    manager().addCarbonKeyEvent(added);
    EXPECT_EQ(manager().keyEvents().at(18 + kOption), added);
    EXPECT_EQ(manager().keyEventFromHotKeyId(idOf(added)), added);
    EXPECT_THAT(manager().allKeyEvents(), SizeIs(2));
}

TEST_F(CarbonEventManagerTest, ReplacesAnEventWithTheSameShortcut) {
    const auto first = event(18, kOption);
    const auto second = counted(18, kOption);
    manager().addCarbonKeyEvent(first);
    manager().addCarbonKeyEvent(second);
    EXPECT_EQ(hotKeys_.registeredCount(), 1U);
    EXPECT_TRUE(manager().hasCarbonKeyEvent(*first));
    EXPECT_TRUE(manager().hasCarbonKeyEvent(*second));
    EXPECT_EQ(manager().keyEventFromHotKeyId(idOf(first)), nullptr);
    EXPECT_EQ(pressesOf(18, kHotKeyOption), 1);
}

TEST_F(CarbonEventManagerTest, GivesAnEventThatIsAddedAgainANewId) {
    const auto added = counted(18, kOption);
    manager().addCarbonKeyEvent(added);
    const auto firstId = idOf(added);
    manager().addCarbonKeyEvent(added);
    EXPECT_EQ(idOf(added), firstId + 1);
    EXPECT_EQ(manager().keyEventFromHotKeyId(firstId), nullptr);
    EXPECT_EQ(hotKeys_.registeredCount(), 1U);
    EXPECT_EQ(pressesOf(18, kHotKeyOption), 1);
}

TEST_F(CarbonEventManagerTest, LetsAnEventFireOnWhenAnotherObjectWithItsShortcutIsRemoved) {
    const auto registered = counted(18, kOption);
    manager().addCarbonKeyEvent(registered);
    manager().removeCarbonKeyEvent(event(18, kOption));
    EXPECT_FALSE(manager().hasCarbonKeyEvent(*registered));
    EXPECT_EQ(manager().keyEventFromHotKeyId(idOf(registered)), registered);
    EXPECT_EQ(pressesOf(18, kHotKeyOption), 1);
}

TEST_F(CarbonEventManagerTest, ReleasesTheStoredEventWhenRemovingByItsShortcut) {
    const auto added = event(18, kOption);
    manager().addCarbonKeyEvent(added);
    manager().removeCarbonKeyEventWithKeyCode(19, kOption);
    EXPECT_EQ(hotKeys_.registeredCount(), 1U);
    manager().removeCarbonKeyEventWithKeyCode(18, kOption);
    EXPECT_EQ(hotKeys_.registeredCount(), 0U);
    EXPECT_THAT(manager().keyEvents(), IsEmpty());
    EXPECT_NE(added->registration().hotKeyRef, 0U); // a removal does not clear the event's own
}

TEST_F(CarbonEventManagerTest, SharesOneEntryBetweenAnIdAndAShortcutOfEqualValue) {
    const auto first = event(18, kOption);
    manager().addCarbonKeyEvent(first);
    const auto second = event(idOf(first), 0);
    manager().addCarbonKeyEvent(second);
    // The first is taken for a registered event of that shortcut, and goes.
    EXPECT_EQ(manager().keyEventFromHotKeyId(idOf(first)), second);
    EXPECT_FALSE(manager().hasCarbonKeyEvent(*first));
    EXPECT_EQ(hotKeys_.registeredCount(), 1U);
}

TEST_F(CarbonEventManagerTest, RemovesEverything) {
    manager().addCarbonKeyEventsInArray({event(18, kOption), event(19, kOption), event(20, 0)});
    manager().removeAllEvents();
    EXPECT_THAT(manager().keyEvents(), IsEmpty());
    EXPECT_EQ(hotKeys_.registeredCount(), 0U);
}

TEST_F(CarbonEventManagerTest, ClaimsAPressUnlessItsIdentifierCannotBeRead) {
    manager().addCarbonKeyEvent(counted(18, kOption));
    const EventTypeSpec type{kEventClassKeyboard, kEventHotKeyPressed};
    EXPECT_EQ(carbonEventHotKeyHandler({type, kNoError, {0, 0xFFFFFFF0}}, nullptr), kNoError);
    EXPECT_EQ(carbonEventHotKeyHandler({type, kEventParameterNotFound, {}}, nullptr),
              kEventParameterNotFound);
    hotKeys_.setParameterStatus(kEventParameterNotFound);
    EXPECT_EQ(pressesOf(18, kHotKeyOption), 0);
}

TEST_F(CarbonEventManagerTest, WritesNothingToTheUserDefaultsUntilToldTo) {
    EXPECT_FALSE(manager().writesToDefaults());
    userDefaults_.setObject(CarbonEventManager::kKeyEventsDefaultsKey, std::string("kept"));
    manager().addCarbonKeyEvent(event(18, kOption));
    manager().saveToDefaults();
    manager().restoreFromDefaults();
    manager().removeAllEvents();
    EXPECT_EQ(userDefaults_.objectForKey("CarbonEventManagerKeyEvents"),
              DefaultsValue(std::string("kept")));
}

TEST_F(CarbonEventManagerTest, RestoresItsTableFromTheUserDefaults) {
    manager().setWritesToDefaults(true);
    const auto saved = event(18, kOption);
    saved->setTag(-7);
    manager().addCarbonKeyEvent(saved);
    const auto data = manager().keyEventsData();
    EXPECT_EQ(userDefaults_.objectForKey("CarbonEventManagerKeyEvents"), DefaultsValue(data));

    manager().setWritesToDefaults(false);
    manager().removeAllEvents();
    manager().setWritesToDefaults(true);
    manager().restoreFromDefaults();
    const auto restored = manager().keyEvents().at(18 + kOption);
    EXPECT_EQ(restored->tag(), -7);
    EXPECT_EQ(restored->target(), nullptr);
    // It stood there under both of its keys, so it was registered twice.
    EXPECT_EQ(idOf(restored), idOf(saved) + 2);
    EXPECT_EQ(hotKeys_.registeredCount(), 1U);

    int calls = 0;
    manager().restoreTargetActions([&](const auto& e) {
        ++calls;
        e->setTarget(counter_, &Counter::onKeyEvent);
    });
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(pressesOf(18, kHotKeyOption), 1);
}

TEST_F(CarbonEventManagerTest, IgnoresDataThatIsAbsentOrDamaged) {
    manager().addCarbonKeyEvent(event(18, kOption));
    manager().restoreKeyEventsFromData(std::nullopt);
    manager().restoreKeyEventsFromData(Bytes{'x', 'y'});
    EXPECT_THAT(manager().keyEvents(), SizeIs(2));
}

} // namespace
} // namespace panewright
