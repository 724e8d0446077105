#pragma once

#include "support/x_client.h"

#include <cstdint>
#include <xcb/xtest.h>

namespace panewright::test {

/// A keyboard that presses real keys. A key is its evdev code (KEY_1 and so on): the physical key,
/// whatever the layout.
class Keyboard {
public:
    explicit Keyboard(const XClient& x) : x_(x) {}

    /// Both return when the server has handled the key.
    void press(std::uint16_t key) const { send(XCB_KEY_PRESS, key); }
    void release(std::uint16_t key) const { send(XCB_KEY_RELEASE, key); }

    void tap(std::uint16_t key) const {
        press(key);
        release(key);
    }
    /// Holds the modifier's key while it taps the other.
    void tap(std::uint16_t modifier, std::uint16_t key) const {
        press(modifier);
        tap(key);
        release(modifier);
    }

    /// The modifiers and locks that are on, of XCB_MOD_MASK_LOCK and so on.
    std::uint16_t modifiers() const {
        const ReplyPointer<xcb_query_pointer_reply_t> state(xcb_query_pointer_reply(
            x_.connection(), xcb_query_pointer(x_.connection(), x_.root()), nullptr));
        return state ? state->mask : std::uint16_t{0};
    }

    /// The server's code of the key.
    static xcb_keycode_t keycode(std::uint16_t key) { return static_cast<xcb_keycode_t>(key + 8); }

private:
    void send(std::uint8_t type, std::uint16_t key) const {
        xcb_test_fake_input(x_.connection(), type, keycode(key), XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                            0);
        x_.synchronize();
    }

    const XClient& x_;
};

} // namespace panewright::test
