// What every hot-key service and keyboard layout does.

#include "contract/x11_rig.h"
#include "desktop/linux/evdev_key_codes.h"
#include "desktop/memory/memory_hot_keys.h"
#include "desktop/memory/memory_keyboard_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kOption = 0x800;
constexpr std::uint32_t kShift = 0x200;
constexpr EventTypeSpec kPressed{kEventClassKeyboard, kEventHotKeyPressed};

class KeysRig {
public:
    virtual ~KeysRig() = default;
    virtual HotKeys& hotKeys() = 0;
    virtual KeyboardLayout& layout() = 0;
    /// Option and the key.
    virtual void press(std::uint32_t virtualKeyCode) = 0;
    virtual void takeByAnotherProgram(std::uint32_t virtualKeyCode) = 0;
    virtual void letGoByAnotherProgram(std::uint32_t virtualKeyCode) = 0;
    /// "us" or "fr".
    virtual void setLayout(const std::string& name) = 0;
    virtual bool eventually(const std::function<bool()>& condition) = 0;
};

class MemoryKeysRig : public KeysRig {
public:
    HotKeys& hotKeys() override { return hotKeys_; }
    KeyboardLayout& layout() override { return layout_; }
    void press(std::uint32_t virtualKeyCode) override { hotKeys_.press(virtualKeyCode, kOption); }
    void takeByAnotherProgram(std::uint32_t virtualKeyCode) override {
        hotKeys_.takeByAnotherProgram(virtualKeyCode, kOption);
    }
    void letGoByAnotherProgram(std::uint32_t virtualKeyCode) override {
        hotKeys_.letGoByAnotherProgram(virtualKeyCode, kOption);
    }
    void setLayout(const std::string& name) override {
        layout_.setKeys(name == "fr" ? MemoryKeyboardLayout::Keys{{0, "q"}, {18, "&"}, {33, "^"}}
                                     : MemoryKeyboardLayout::Keys{{0, "a"}, {18, "1"}, {82, "0"}});
    }
    bool eventually(const std::function<bool()>& condition) override {
        loop_.runPending();
        return condition();
    }

private:
    MemoryMainLoop loop_;
    MemoryHotKeys hotKeys_{loop_};
    MemoryKeyboardLayout layout_;
};

class X11KeysRig : public KeysRig {
public:
    HotKeys& hotKeys() override { return rig_.ports->hotKeys; }
    KeyboardLayout& layout() override { return rig_.ports->keyboardLayout; }
    void press(std::uint32_t virtualKeyCode) override {
        rig_.loop.runPending(); // grabs what was registered
        rig_.desktop.keyboard().tap(
            KEY_LEFTALT, static_cast<std::uint16_t>(evdevCodesOf(virtualKeyCode).front()));
    }
    void takeByAnotherProgram(std::uint32_t virtualKeyCode) override {
        EXPECT_TRUE(rig_.eventually([&] { // our letting go may still be under way
            return rig_.desktop.x().grabKey(XCB_MOD_MASK_1, keyOf(virtualKeyCode));
        }));
    }
    void letGoByAnotherProgram(std::uint32_t virtualKeyCode) override {
        const auto& x = rig_.desktop.x();
        xcb_ungrab_key(x.connection(), keyOf(virtualKeyCode), x.root(), XCB_MOD_MASK_1);
        x.synchronize();
    }
    void setLayout(const std::string& name) override { rig_.desktop.setKeyboardLayout(name); }
    bool eventually(const std::function<bool()>& condition) override {
        return rig_.eventually(condition);
    }

private:
    static xcb_keycode_t keyOf(std::uint32_t virtualKeyCode) {
        return static_cast<xcb_keycode_t>(evdevCodesOf(virtualKeyCode).front() + kEvdevToXKeyCode);
    }

    X11Rig rig_;
};

std::unique_ptr<KeysRig> makeKeysRig(const std::string& desktop) {
    if (desktop == "memory") {
        return std::make_unique<MemoryKeysRig>();
    }
    return std::make_unique<X11KeysRig>();
}

class HotKeysContract : public testing::TestWithParam<const char*> {
protected:
    struct Heard {
        std::vector<std::string>* log;
        std::string name;
        EventStatus answer;
    };

    static EventStatus handler(const HotKeyEvent& event, void* userData) {
        auto& heard = *static_cast<Heard*>(userData);
        heard.log->push_back(heard.name + std::to_string(event.hotKeyId.id));
        return heard.answer;
    }

    HotKeys& port() { return rig_->hotKeys(); }
    HotKeyRef add(std::uint32_t keyCode, std::uint32_t id) {
        return port().registerHotKey(keyCode, kOption, {0, id}).ref;
    }
    /// What the handlers heard of the press, and that it was no more than `count` calls.
    std::vector<std::string> heardAfter(std::uint32_t keyCode, std::size_t count = 1) {
        log_.clear();
        rig_->press(keyCode);
        rig_->eventually([&] { return log_.size() >= count; });
        return log_;
    }

    std::unique_ptr<KeysRig> rig_ = makeKeysRig(GetParam());
    std::vector<std::string> log_;
    Heard first_{&log_, "first", kNoError};
    Heard second_{&log_, "second", kNoError};
};

TEST_P(HotKeysContract, DeliverAPressToTheNewestHandlerUntilOneClaimsIt) {
    const auto installed = port().installHandler(kPressed, handler, &first_);
    add(18, 7);
    EXPECT_THAT(heardAfter(18), ElementsAre("first7"));
    second_.answer = kEventParameterNotFound;
    const auto newer = port().installHandler(kPressed, handler, &second_);
    port().installHandler({kEventClassKeyboard, 6}, handler, &second_); // releases are another type
    EXPECT_THAT(heardAfter(18, 2), ElementsAre("second7", "first7"));
    second_.answer = kNoError;
    EXPECT_THAT(heardAfter(18), ElementsAre("second7"));
    port().removeHandler(newer);
    port().removeHandler(newer);
    port().removeHandler(0);
    EXPECT_THAT(heardAfter(18), ElementsAre("first7"));
    port().removeHandler(installed);
    add(19, 8);
    EXPECT_THAT(heardAfter(18, 0), IsEmpty());
}

TEST_P(HotKeysContract, TellKeysApartAndFallSilentWhenUnregistered) {
    port().installHandler(kPressed, handler, &first_);
    const auto one = add(18, 1);
    add(19, 2);
    port().registerHotKey(18, kOption | kShift, {0, 3});
    EXPECT_THAT(heardAfter(19), ElementsAre("first2"));
    EXPECT_THAT(heardAfter(18), ElementsAre("first1"));
    port().unregisterHotKey(one);
    port().unregisterHotKey(one);
    EXPECT_THAT(heardAfter(18, 0), IsEmpty());
    add(18, 4);
    EXPECT_THAT(heardAfter(18), ElementsAre("first4"));
}

TEST_P(HotKeysContract, RefuseAKeyThatDoesNotExist) {
    const auto refused = port().registerHotKey(200, kOption, {0, 1});
    EXPECT_EQ(refused.status, kHotKeyInvalid);
    EXPECT_EQ(refused.ref, 0U);
}

TEST_P(HotKeysContract, TellWhetherAnotherProgramHoldsAKey) {
    port().installHandler(kPressed, handler, &first_);
    rig_->takeByAnotherProgram(20);
    const auto wanted = port().registerHotKey(20, kOption, {0, 1});
    EXPECT_EQ(wanted.status, kNoError);
    add(21, 2);
    for (const bool isPressed : {false, true}) { // before they are grabbed, and after
        EXPECT_TRUE(port().isTakenByAnotherProgram(20, kOption));
        EXPECT_FALSE(port().isTakenByAnotherProgram(20, kOption | kShift));
        EXPECT_FALSE(port().isTakenByAnotherProgram(21, kOption));
        EXPECT_FALSE(port().isTakenByAnotherProgram(200, kOption));
        EXPECT_THAT(heardAfter(20, 0), IsEmpty());
        EXPECT_THAT(heardAfter(21), ElementsAre("first2")) << isPressed;
    }
    rig_->takeByAnotherProgram(22); // which nobody here wants, so nothing of ours is in the way
    EXPECT_TRUE(port().isTakenByAnotherProgram(22, kOption));
    rig_->letGoByAnotherProgram(22);
    EXPECT_FALSE(port().isTakenByAnotherProgram(22, kOption));
    rig_->takeByAnotherProgram(22); // being asked has let go of it
    EXPECT_TRUE(port().isTakenByAnotherProgram(22, kOption));
    rig_->letGoByAnotherProgram(20);
    EXPECT_FALSE(port().isTakenByAnotherProgram(20, kOption));
    EXPECT_THAT(heardAfter(20), ElementsAre("first1")); // it is ours since
}

class KeyboardLayoutContract : public testing::TestWithParam<const char*> {
protected:
    std::unique_ptr<KeysRig> rig_ = makeKeysRig(GetParam());
};

TEST_P(KeyboardLayoutContract, NamesKeysByTheLayoutAndTellsWhenItChanges) {
    const auto text = [&](std::uint16_t key) { return rig_->layout().displayText(key); };
    rig_->setLayout("us");
    ASSERT_TRUE(rig_->eventually([&] { return text(18) == "1"; }));
    EXPECT_EQ(text(0), "a");
    EXPECT_EQ(text(82), "0"); // keypad, whatever NumLock says
    EXPECT_EQ(text(127), "");
    int changes = 0;
    const auto registration = rig_->layout().onChange([&] { ++changes; });
    rig_->setLayout("fr");
    ASSERT_TRUE(rig_->eventually([&] { return changes > 0; }));
    EXPECT_EQ(text(0), "q");
    EXPECT_EQ(text(18), "&");
    EXPECT_EQ(text(33), "^"); // a dead key shows its accent
}

INSTANTIATE_TEST_SUITE_P(Everywhere, HotKeysContract, testing::Values("memory", "X11"),
                         [](const auto& keys) { return std::string(keys.param); });
INSTANTIATE_TEST_SUITE_P(Everywhere, KeyboardLayoutContract, testing::Values("memory", "X11"),
                         [](const auto& keys) { return std::string(keys.param); });

} // namespace
} // namespace panewright
