// What every hot-key service and keyboard layout does.

#include "contract/x11_rig.h"
#include "desktop/linux/evdev_key_codes.h"
#include "support/captured_log.h"

#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kOption = 0x800;
constexpr std::uint32_t kShift = 0x200;
constexpr std::uint32_t kControl = 0x1000;

class HotKeysContract : public DesktopContract {
protected:
    HotKeyRef add(std::uint32_t keyCode, std::uint32_t id) {
        return port_.registerHotKey(keyCode, kOption, {0, id}).ref;
    }
    static std::uint16_t evdevCode(std::uint32_t keyCode) {
        return static_cast<std::uint16_t>(evdevCodesOf(keyCode).front());
    }
    /// The identifiers that were told of after a press of Option and the key; waits for that many.
    std::vector<std::uint32_t> heardAfter(std::uint32_t keyCode, std::size_t count = 1) {
        log_.clear();
        if (x11_) {
            x11_->loop.runPending(); // grabs what was registered
            x11_->desktop.keyboard().tap(KEY_LEFTALT, evdevCode(keyCode));
        } else {
            memory_.hotKeys.press(keyCode, kOption);
        }
        eventually([&] { return log_.size() >= count; });
        return log_;
    }
    void takeByAnotherProgram(std::uint32_t keyCode) {
        if (x11_) {
            EXPECT_TRUE(eventually([&] { // our letting go may still be under way
                return x11_->desktop.x().grabKey(XCB_MOD_MASK_1,
                                                 test::Keyboard::keycode(evdevCode(keyCode)));
            }));
        } else {
            memory_.hotKeys.takeByAnotherProgram(keyCode, kOption);
        }
    }
    void letGoByAnotherProgram(std::uint32_t keyCode) {
        if (x11_) {
            const auto& x = x11_->desktop.x();
            xcb_ungrab_key(x.connection(), test::Keyboard::keycode(evdevCode(keyCode)), x.root(),
                           XCB_MOD_MASK_1);
            x.synchronize();
        } else {
            memory_.hotKeys.letGoByAnotherProgram(keyCode, kOption);
        }
    }

    HotKeys& port_ = ports_.hotKeys;
    std::vector<std::uint32_t> log_;
    Registration presses_ = port_.onPressed([this](const HotKeyPress& press) {
        EXPECT_EQ(press.status, kNoError);
        log_.push_back(press.hotKeyId.id);
    });
};

TEST_P(HotKeysContract, TellKeysApartAndFallSilentWhenUnregistered) {
    const auto one = add(18, 1);
    add(19, 2);
    port_.registerHotKey(18, kOption | kShift, {0, 3});
    EXPECT_THAT(heardAfter(19), ElementsAre(2));
    EXPECT_THAT(heardAfter(18), ElementsAre(1));
    port_.unregisterHotKey(one);
    port_.unregisterHotKey(one);
    EXPECT_THAT(heardAfter(18, 0), IsEmpty());
    add(18, 4);
    EXPECT_THAT(heardAfter(18), ElementsAre(4));
    EXPECT_EQ(port_.registerHotKey(200, kOption, {}).status, kHotKeyInvalid); // no such key
    presses_.release();
    EXPECT_THAT(heardAfter(18, 0), IsEmpty());
}

TEST_P(HotKeysContract, TellWhetherAnotherProgramHoldsAKey) {
    takeByAnotherProgram(20);
    const auto isTaken = [&](std::uint32_t keyCode) {
        return port_.isTakenByAnotherProgram(keyCode, kOption);
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
    takeByAnotherProgram(22); // which nobody here wants
    EXPECT_TRUE(isTaken(22));
    letGoByAnotherProgram(22);
    EXPECT_FALSE(isTaken(22));
    takeByAnotherProgram(22); // being asked has let go of it
    letGoByAnotherProgram(20);
    EXPECT_FALSE(isTaken(20));
    EXPECT_THAT(heardAfter(20), ElementsAre(1)); // it is ours since
}

INSTANTIATE_TEST_SUITE_P(Everywhere, HotKeysContract, testing::Values("memory", "X11"),
                         [](const auto& keys) { return std::string(keys.param); });

TEST(X11HotKeys, TakeNoKeyEventThatAnotherProgramMakesUp) {
    X11Rig rig;
    int presses = 0;
    const auto counting = rig.ports->hotKeys.onPressed([&](const HotKeyPress&) { ++presses; });
    rig.ports->hotKeys.registerHotKey(18, kOption, {0, 1});
    rig.loop.runPending();
    const auto& x = rig.desktop.x();
    const test::ReplyPointer<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(x.connection(), xcb_query_tree(x.connection(), x.root()), nullptr));
    const auto forge = [&](std::uint8_t type) {
        xcb_key_press_event_t event{};
        event.response_type = type;
        event.detail = test::Keyboard::keycode(KEY_1);
        event.state = XCB_MOD_MASK_1;
        event.root = x.root();
        for (int i = 0; i < tree->children_len; ++i) { // without a mask it goes to the owner
            xcb_send_event(x.connection(), 0, xcb_query_tree_children(tree.get())[i], 0,
                           reinterpret_cast<const char*>(&event));
        }
        x.synchronize();
        rig.loop.runPending();
    };
    forge(XCB_KEY_PRESS);
    EXPECT_EQ(presses, 0);
    rig.desktop.keyboard().press(KEY_LEFTALT);
    rig.desktop.keyboard().press(KEY_1);
    EXPECT_TRUE(rig.eventually([&] { return presses == 1; }));
    forge(XCB_KEY_RELEASE);
    rig.desktop.keyboard().press(KEY_1); // repeats
    rig.loop.runPending();
    EXPECT_EQ(presses, 1);
    rig.desktop.keyboard().release(KEY_1);
    rig.desktop.keyboard().release(KEY_LEFTALT);
}

TEST(X11HotKeys, SayOnceInTheLogWhichOnesAnotherProgramHolds) {
    X11Rig rig;
    auto& port = rig.ports->hotKeys;
    const auto& x = rig.desktop.x();
    for (const int key : {KEY_2, KEY_F5}) {
        x.grabKey(XCB_MOD_MASK_1, test::Keyboard::keycode(static_cast<std::uint16_t>(key)));
        x.grabKey(XCB_MOD_MASK_1 | XCB_MOD_MASK_CONTROL,
                  test::Keyboard::keycode(static_cast<std::uint16_t>(key)));
    }
    CapturedLog log;
    std::vector<HotKeyRef> refs;
    const auto registerAll = [&] {
        for (const auto ref : std::exchange(refs, {})) {
            port.unregisterHotKey(ref);
            rig.loop.runPending();
        }
        for (const std::uint32_t keyCode : {18, 19, 0, 96}) { // 1, 2, A, F5
            refs.push_back(port.registerHotKey(keyCode, kOption, {}).ref);
        }
        refs.push_back(port.registerHotKey(96, kOption | kControl, {}).ref);
        rig.loop.runPending();
        return log.take();
    };
    EXPECT_THAT(registerAll(),
                ElementsAre("another program holds Alt+2", "another program holds Alt+F5",
                            "another program holds Ctrl+Alt+F5"));
    EXPECT_THAT(registerAll(), IsEmpty());
    const auto two = test::Keyboard::keycode(KEY_2);
    xcb_ungrab_key(x.connection(), two, x.root(), XCB_MOD_MASK_1);
    x.synchronize();
    EXPECT_THAT(registerAll(), IsEmpty());
    for (const auto ref : refs) {
        port.unregisterHotKey(ref);
    }
    rig.loop.runPending();
    EXPECT_TRUE(rig.eventually([&] { return x.grabKey(XCB_MOD_MASK_1, two); }));
    EXPECT_THAT(registerAll(), ElementsAre("another program holds Alt+2"));
}

class KeyboardLayoutContract : public DesktopContract {};

TEST_P(KeyboardLayoutContract, NamesKeysByTheLayoutThatIsLaid) {
    const std::pair<const char*, MemoryKeyboardLayout::Keys> layouts[] = {
        // Of a dead key its accent; of the keypad, whatever NumLock says; of a key without text.
        {"fr", {{0, "q"}, {18, "&"}, {33, "^"}, {82, "0"}, {74, "Mute"}}},
        {"us", {{0, "a"}, {18, "1"}, {33, "["}, {82, "0"}, {74, "Mute"}}},
    };
    for (const auto& [layout, keys] : layouts) {
        x11_ ? x11_->desktop.run({"setxkbmap", "-layout", layout})
             : memory_.keyboardLayout.setKeys(keys);
        for (const auto& [keyCode, text] : keys) {
            EXPECT_TRUE(eventually([&, code = keyCode, &wanted = text] {
                return ports_.keyboardLayout.displayText(code) == wanted;
            })) << layout
                << keyCode;
        }
        EXPECT_EQ(ports_.keyboardLayout.displayText(127), "");
    }
}

TEST(XkbKeyboardLayout, NamesKeysByTheLayoutThatIsSwitchedToIfItTypesAscii) {
    X11Rig rig;
    // The key of Y types z on a German keyboard, that of A q on a French one.
    const struct {
        const char* layouts; // laid anew, of which the one with the same number is active
        int switches;        // to the next layout
        std::string keyOfY;
        std::string keyOfA;
    } cases[] = {
        {"us,de", 0, "y", "a"},        {"us,de", 1, "z", "a"},       {"us,de", 0, "z", "a"},
        {"us,de", 1, "y", "a"},        {"us,fr,ru,de", 0, "y", "a"}, {"us,fr,ru,de", 1, "y", "q"},
        {"us,fr,ru,de", 1, "y", "q"}, // now Russian, and French before
        {"de,us,ru,fr", 0, "y", "q"},  {"de,us,ru,fr", 2, "z", "a"}, // French, German
        {"ru", 0, "\u043D", "\u0444"}, {"ru,de", 0, "z", "a"},
    };
    rig.desktop.run({"setxkbmap", "-option", "grp:rctrl_toggle"});
    for (const auto& test : cases) {
        SCOPED_TRACE(testing::Message() << test.layouts << " " << test.switches);
        rig.desktop.run({"setxkbmap", "-layout", test.layouts});
        for (int i = 0; i < test.switches; ++i) {
            rig.desktop.keyboard().tap(KEY_RIGHTCTRL);
        }
        const auto& names = rig.ports->keyboardLayout;
        EXPECT_TRUE(rig.eventually([&] {
            return names.displayText(16) == test.keyOfY && names.displayText(0) == test.keyOfA;
        })) << names.displayText(16)
            << names.displayText(0);
    }
}

INSTANTIATE_TEST_SUITE_P(Everywhere, KeyboardLayoutContract, testing::Values("memory", "X11"),
                         [](const auto& layout) { return std::string(layout.param); });

} // namespace
} // namespace panewright
