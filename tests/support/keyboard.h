#pragma once

#include "support/x_client.h"

#include <cstdint>

namespace panewright::test {

/// A keyboard that presses real keys. A key is its evdev code (KEY_1 and so on): the physical key,
/// whatever the layout.
class Keyboard {
public:
    explicit Keyboard(const XClient& x) : x_(x) {}

    /// Both return when the server has handled the key.
    void press(std::uint16_t key) const;
    void release(std::uint16_t key) const;

    void tap(std::uint16_t key) const;
    /// Holds the modifier's key while it taps the other.
    void tap(std::uint16_t modifier, std::uint16_t key) const;

    /// Taps the lock key if its lamp is not as wanted.
    void setNumLock(bool on) const;
    void setCapsLock(bool on) const;

    static xcb_keycode_t keycode(std::uint16_t key);

private:
    void send(std::uint8_t type, std::uint16_t key) const;
    void setLock(std::uint16_t key, std::uint16_t modifier, bool on) const;

    const XClient& x_;
};

} // namespace panewright::test
