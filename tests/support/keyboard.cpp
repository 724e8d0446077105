#include "support/keyboard.h"

#include <linux/input-event-codes.h>
#include <stdexcept>
#include <xcb/xtest.h>

namespace panewright::test {

xcb_keycode_t Keyboard::keycode(std::uint16_t key) {
    constexpr int kOffset = 8; // of the server's key codes
    return static_cast<xcb_keycode_t>(key + kOffset);
}

void Keyboard::send(std::uint8_t type, std::uint16_t key) const {
    xcb_test_fake_input(x_.connection(), type, keycode(key), XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    x_.synchronize();
}

void Keyboard::press(std::uint16_t key) const {
    send(XCB_KEY_PRESS, key);
}

void Keyboard::release(std::uint16_t key) const {
    send(XCB_KEY_RELEASE, key);
}

void Keyboard::tap(std::uint16_t key) const {
    press(key);
    release(key);
}

void Keyboard::tap(std::uint16_t modifier, std::uint16_t key) const {
    press(modifier);
    tap(key);
    release(modifier);
}

void Keyboard::setNumLock(bool on) const {
    setLock(KEY_NUMLOCK, XCB_MOD_MASK_2, on);
}

void Keyboard::setCapsLock(bool on) const {
    setLock(KEY_CAPSLOCK, XCB_MOD_MASK_LOCK, on);
}

void Keyboard::setLock(std::uint16_t key, std::uint16_t modifier, bool on) const {
    const auto isOn = [&] {
        const ReplyPointer<xcb_query_pointer_reply_t> state(xcb_query_pointer_reply(
            x_.connection(), xcb_query_pointer(x_.connection(), x_.root()), nullptr));
        return state && (state->mask & modifier) != 0;
    };
    if (isOn() != on) {
        tap(key);
    }
    if (isOn() != on) {
        throw std::runtime_error("the lock key does not work");
    }
}

} // namespace panewright::test
