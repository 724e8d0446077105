#include "shortcuts/carbon_event_manager.h"

#include "desktop/memory/memory_hot_keys.h"
#include "desktop/memory/memory_main_loop.h"
#include "desktop/memory/memory_user_defaults.h"
#include "shortcuts/hot_key_id_counter.h"
#include "shortcuts/modifier_flags.h"
#include "support/captured_log.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::uint64_t kOption = 0x80000;

struct Receiver {
    void onKeyEvent(const std::shared_ptr<CarbonKeyEvent>& sender) { senders.push_back(sender); }

    std::vector<std::shared_ptr<CarbonKeyEvent>> senders;
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

    std::shared_ptr<CarbonKeyEvent> event(std::uint64_t keyCode, std::uint64_t flags = kOption) {
        auto made = CarbonKeyEvent::carbonEventWithKeyCode(keyCode, flags);
        made->setTarget(receiver_, &Receiver::onKeyEvent);
        return made;
    }
    std::shared_ptr<CarbonKeyEvent> added(std::uint64_t keyCode, std::uint64_t flags = kOption) {
        auto made = event(keyCode, flags);
        manager().addCarbonKeyEvent(made);
        return made;
    }
    /// The events that fire when Option and the key are pressed.
    std::vector<std::shared_ptr<CarbonKeyEvent>> firedBy(std::uint32_t keyCode) {
        receiver_->senders.clear();
        hotKeys_.press(keyCode, 0x800);
        EXPECT_THAT(receiver_->senders, IsEmpty()) << "not within the press";
        loop_.runPending();
        return receiver_->senders;
    }

    CarbonEventManager& manager() { return CarbonEventManager::sharedManager(); }
    static std::uint32_t idOf(const std::shared_ptr<CarbonKeyEvent>& e) {
        return e->registration().hotKeyId.id;
    }

    MemoryMainLoop loop_;
    MemoryHotKeys hotKeys_{loop_};
    MemoryUserDefaults userDefaults_;
    std::shared_ptr<Receiver> receiver_ = std::make_shared<Receiver>();
};

TEST_F(CarbonEventManagerTest, ConvertsModifierFlagsBothWays) {
    const std::pair<std::uint64_t, std::uint64_t> pairs[] = {
        {0x100000, 0x100}, {0x1E0000, 0x1B00}, {0x800000, 0x800000}, {0, 0}};
    for (const auto& [application, hotKey] : pairs) {
        EXPECT_EQ(cocoaToCarbonModifierFlags(application | 0x1000F), hotKey);
        EXPECT_EQ(carbonToCocoaModifierFlags(hotKey | 0x400), application);
    }
}

TEST_F(CarbonEventManagerTest, FiresOneEventForOnePressThoughEveryEventHasAHandler) {
    const auto one = event(18);
    const auto two = event(19);
    manager().addCarbonKeyEventsInArray({one, two});
    EXPECT_THAT(firedBy(18), ElementsAre(one));
    EXPECT_THAT(firedBy(19), ElementsAre(two));
    hotKeys_.setReadingStatus(kEventParameterNotFound);
    EXPECT_THAT(firedBy(18), IsEmpty()) << "its identifier cannot be read";
    EXPECT_THAT(manager().allKeyEvents(), SizeIs(4));
    manager().removeAllEvents();
    EXPECT_EQ(hotKeys_.registeredCount(), 0U);
}

TEST_F(CarbonEventManagerTest, KeepsTheReceiverFromThePressToTheCallAndLogsWhenThereIsNone) {
    CapturedLog log;
    const auto pressed = event(18);
    pressed->invoke(loop_);
    const std::weak_ptr<Receiver> watched = receiver_;
    receiver_.reset();
    EXPECT_FALSE(watched.expired());
    loop_.runPending();
    EXPECT_TRUE(watched.expired());
    pressed->invoke(loop_);
    EXPECT_THAT(log.take(), ElementsAre("keyCode: 18, withModifiers:524288 invoked but no "
                                        "target/action is available."));
}

TEST_F(CarbonEventManagerTest, ReplacesAnEventOfTheSameShortcutAndGivesAnEventAddedAgainANewId) {
    const auto first = added(18);
    const auto second = added(18);
    EXPECT_EQ(manager().keyEventFromHotKeyId(idOf(first)), nullptr);
    const auto id = idOf(second);
    manager().addCarbonKeyEvent(second);
    EXPECT_EQ(idOf(second), id + 1);
    EXPECT_EQ(manager().keyEventFromHotKeyId(id), nullptr);
    EXPECT_EQ(hotKeys_.registeredCount(), 1U);
    EXPECT_THAT(firedBy(18), ElementsAre(second));
}

TEST_F(CarbonEventManagerTest, GivesIdsFromOneOnWhichShareTheTableWithTheShortcuts) {
    HotKeyIdCounter counter(0xFFFFFFFE);
    EXPECT_EQ(HotKeyIdCounter().take(), 1U);
    EXPECT_EQ(counter.take(), 0xFFFFFFFEU);
    EXPECT_EQ(counter.take(), 0U);
    EXPECT_EQ(counter.take(), 1U);

    const auto withId = added(18);
    EXPECT_EQ(withId->registration().hotKeyId.signature, 0U);
    EXPECT_EQ(withId->registration().eventSpec, (EventTypeSpec{0x6B657962, 5}));
    const auto plain = added(idOf(withId), 0); // a key of that number without modifiers
    EXPECT_EQ(manager().keyEventFromHotKeyId(idOf(withId)), plain);
    EXPECT_THAT(firedBy(18), IsEmpty());
    EXPECT_EQ(userDefaults_.objectForKey(CarbonEventManager::kKeyEventsDefaultsKey), std::nullopt);
}

TEST_F(CarbonEventManagerTest, ReleasesWhatItIsGivenOrWhatIsStoredUnderAShortcut) {
    const auto registered = added(18);
    manager().removeCarbonKeyEvent(event(18)); // another object
    EXPECT_FALSE(manager().hasCarbonKeyEvent(*registered));
    EXPECT_THAT(firedBy(18), ElementsAre(registered));

    const auto stored = added(19);
    manager().removeCarbonKeyEventWithKeyCode(20, kOption);
    EXPECT_THAT(firedBy(19), ElementsAre(stored));
    manager().removeCarbonKeyEventWithKeyCode(19, kOption);
    EXPECT_THAT(firedBy(19), IsEmpty());
}

TEST_F(CarbonEventManagerTest, KeepsItsTableInTheUserDefaultsOnceToldTo) {
    constexpr auto kKey = CarbonEventManager::kKeyEventsDefaultsKey;
    const auto saved = added(18);
    saved->setTag(-7);
    manager().setWritesToDefaults(true);
    manager().addCarbonKeyEvent(saved);
    EXPECT_EQ(userDefaults_.objectForKey(kKey), DefaultsValue(manager().keyEventsData()));
    manager().setWritesToDefaults(false);
    manager().removeAllEvents();
    manager().setWritesToDefaults(true);
    manager().restoreFromDefaults();
    const auto restored = manager().keyEvents().at(18 + kOption);
    EXPECT_EQ(restored->tag(), -7);
    // It stood there under both of its keys, so it was registered twice.
    EXPECT_EQ(idOf(restored), idOf(saved) + 2);
}

} // namespace
} // namespace panewright
