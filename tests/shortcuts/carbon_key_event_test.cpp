#include "shortcuts/carbon_key_event.h"

#include "desktop/memory/memory_main_loop.h"
#include "support/captured_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Receiver {
    void onKeyEvent(const std::shared_ptr<CarbonKeyEvent>& sender) { senders.push_back(sender); }

    std::vector<std::shared_ptr<CarbonKeyEvent>> senders;
};

TEST(CarbonKeyEvent, FiresAfterTheCurrentEventWithItselfAsTheArgument) {
    MemoryMainLoop loop;
    const auto receiver = std::make_shared<Receiver>();
    const auto event = CarbonKeyEvent::carbonEventWithKeyCode(18, 0x80000);
    event->setTarget(receiver, &Receiver::onKeyEvent);

    event->invoke(loop);
    EXPECT_THAT(receiver->senders, IsEmpty());
    loop.runPending();
    EXPECT_THAT(receiver->senders, ElementsAre(event));
}

TEST(CarbonKeyEvent, KeepsItsReceiverFromThePressToTheCall) {
    MemoryMainLoop loop;
    auto receiver = std::make_shared<Receiver>();
    const auto event = CarbonKeyEvent::carbonEventWithKeyCode(18, 0x80000);
    event->setTarget(receiver, &Receiver::onKeyEvent);
    event->invoke(loop);
    const std::weak_ptr<Receiver> watched = receiver;
    receiver.reset();
    EXPECT_FALSE(watched.expired());
    loop.runPending();
    EXPECT_TRUE(watched.expired());
}

TEST(CarbonKeyEvent, LogsAPressThatNobodyReceives) {
    MemoryMainLoop loop;
    CapturedLog log;
    const auto event = CarbonKeyEvent::carbonEventWithKeyCode(18, 0x80000);
    event->invoke(loop);
    auto receiver = std::make_shared<Receiver>();
    event->setTarget(receiver, &Receiver::onKeyEvent);
    receiver.reset();
    event->invoke(loop);
    loop.runPending();
    const auto* line =
        "keyCode: 18, withModifiers:524288 invoked but no target/action is available.";
    EXPECT_THAT(log.take(), ElementsAre(line, line));
}

} // namespace
} // namespace panewright
