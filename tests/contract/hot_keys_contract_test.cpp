// What every hot-key service does.

#include "contract/desktop_driver.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HotKeysContract : public DesktopContract {
protected:
    HotKeyRef add(std::uint32_t keyCode, std::uint32_t id) {
        return ports_.hotKeys.registerHotKey(keyCode, kHotKeyOption, {0, id}).ref;
    }
    /// The identifiers that were told of after a press of Option and the key; waits for that many.
    std::vector<std::uint32_t> heardAfter(std::uint32_t keyCode, std::size_t count = 1) {
        log_.clear();
        driver_->tap(keyCode);
        driver_->eventually([&] { return log_.size() >= count; });
        return log_;
    }

    std::vector<std::uint32_t> log_;
    Registration presses_ = ports_.hotKeys.onPressed([this](const HotKeyPress& press) {
        EXPECT_EQ(press.status, kNoError);
        log_.push_back(press.hotKeyId.id);
    });
};

TEST_P(HotKeysContract, TellKeysApartAndFallSilentWhenUnregistered) {
    const auto one = add(18, 1);
    add(19, 2);
    ports_.hotKeys.registerHotKey(18, kHotKeyOption | kHotKeyShift, {0, 3});
    EXPECT_THAT(heardAfter(19), ElementsAre(2));
    EXPECT_THAT(heardAfter(18), ElementsAre(1));
    ports_.hotKeys.unregisterHotKey(one);
    ports_.hotKeys.unregisterHotKey(one);
    EXPECT_THAT(heardAfter(18, 0), IsEmpty());
    add(18, 4);
    EXPECT_THAT(heardAfter(18), ElementsAre(4));
    EXPECT_EQ(ports_.hotKeys.registerHotKey(200, kHotKeyOption, {}).status,
              kHotKeyInvalid); // no such key
    presses_.release();
    EXPECT_THAT(heardAfter(18, 0), IsEmpty());
}

TEST_P(HotKeysContract, TellWhetherAnotherProgramHoldsAKey) {
    driver_->takeByAnotherProgram(20);
    const auto isTaken = [&](std::uint32_t keyCode) {
        return ports_.hotKeys.isTakenByAnotherProgram(keyCode, kHotKeyOption);
    };
    add(20, 1);
    add(21, 2);
    for (const char* moment : {"before they are grabbed", "after"}) {
        SCOPED_TRACE(moment);
        EXPECT_TRUE(isTaken(20));
        EXPECT_FALSE(isTaken(21));
        EXPECT_FALSE(isTaken(200));
        EXPECT_THAT(heardAfter(20, 0), IsEmpty());
        EXPECT_THAT(heardAfter(21), ElementsAre(2));
    }
    driver_->takeByAnotherProgram(22); // which nobody here wants
    EXPECT_TRUE(isTaken(22));
    driver_->letGoByAnotherProgram(22);
    EXPECT_FALSE(isTaken(22));
    driver_->takeByAnotherProgram(22); // being asked has let go of it
    driver_->letGoByAnotherProgram(20);
    EXPECT_FALSE(isTaken(20));
    EXPECT_THAT(heardAfter(20), ElementsAre(1)); // it is ours since
}

INSTANTIATE_TEST_SUITE_P(Everywhere, HotKeysContract, testing::Values(kMemory, kX11),
                         DesktopContract::nameOf);

} // namespace
} // namespace panewright
