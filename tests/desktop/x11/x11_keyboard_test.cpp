// What only passive grabs and the server's keyboard map bring about.

#include "contract/x11_rig.h"
#include "support/captured_log.h"

#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(X11HotKeys, TakeNoKeyEventThatAnotherProgramMakesUp) {
    X11Rig rig{{.arguments = {"-ardelay", "50", "-arinterval", "10"}}};
    int presses = 0;
    const auto counting = rig.ports->hotKeys.onPressed([&](const HotKeyPress&) { ++presses; });
    rig.ports->hotKeys.registerHotKey(18, kHotKeyOption, {0, 1});
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
    rig.eventually([tries = 150]() mutable { return --tries == 0; }); // some repeats come
    EXPECT_EQ(presses, 1);
    rig.desktop.keyboard().release(KEY_1);
    rig.desktop.keyboard().release(KEY_LEFTALT);
}

TEST(X11HotKeys, SayOnceInTheLogWhichOnesAnotherProgramHolds) {
    X11Rig rig;
    auto& port = rig.ports->hotKeys;
    const auto& x = rig.desktop.x();
    const auto two = test::Keyboard::keycode(KEY_2);
    x.grabKey(XCB_MOD_MASK_1, two);
    x.grabKey(XCB_MOD_MASK_1 | XCB_MOD_MASK_CONTROL, test::Keyboard::keycode(KEY_F5));
    CapturedLog log;
    std::vector<HotKeyRef> refs;
    const auto release = [&] {
        for (const auto ref : std::exchange(refs, {})) {
            port.unregisterHotKey(ref);
        }
        rig.loop.runPending();
    };
    const auto registerAll = [&] {
        release();
        for (const std::uint32_t keyCode : {18, 19, 96}) { // 1, 2, F5
            refs.push_back(port.registerHotKey(keyCode, kHotKeyOption, {}).ref);
        }
        refs.push_back(port.registerHotKey(96, kHotKeyOption | kHotKeyControl, {}).ref);
        rig.loop.runPending();
        return log.take();
    };
    EXPECT_THAT(registerAll(),
                ElementsAre("another program holds Alt+2", "another program holds Alt+F5",
                            "another program holds Ctrl+Alt+F5")); // the second is openbox
    EXPECT_THAT(registerAll(), IsEmpty());
    xcb_ungrab_key(x.connection(), two, x.root(), XCB_MOD_MASK_1);
    x.synchronize();
    EXPECT_THAT(registerAll(), IsEmpty());
    release();
    EXPECT_TRUE(rig.eventually([&] { return x.grabKey(XCB_MOD_MASK_1, two); }));
    EXPECT_THAT(registerAll(), ElementsAre("another program holds Alt+2"));
}

TEST(XkbKeyboardLayout, NamesKeysByTheLayoutThatIsSwitchedToIfItTypesAscii) {
    X11Rig rig;
    // The key of Y types z on a German keyboard, that of A q on a French one.
    const struct {
        const char* layouts; // laid anew, of which the one with the same number is active
        int switches;        // to the next layout
        std::string keyOfY, keyOfA;
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
    rig.desktop.run({"setxkbmap", "-layout", "fr"});
    const std::pair<std::uint16_t, const char*> others[] = {
        {18, "&"}, {33, "^"}, {82, "0"}, {74, "Mute"}, {127, ""}};
    for (const auto& [keyCode, text] : others) { // of a dead key its accent, NumLock or not
        EXPECT_TRUE(rig.eventually([&, code = keyCode, wanted = text] {
            return rig.ports->keyboardLayout.displayText(code) == wanted;
        })) << text;
    }
}

} // namespace
} // namespace panewright
