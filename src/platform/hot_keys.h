#pragma once

#include "base/registration.h"

#include <cstdint>
#include <functional>

namespace panewright {

// Modifiers in the hot-key form.
constexpr std::uint32_t kHotKeyCommand = 0x100;
constexpr std::uint32_t kHotKeyShift = 0x200;
constexpr std::uint32_t kHotKeyOption = 0x800;
constexpr std::uint32_t kHotKeyControl = 0x1000;

/// Names a hot key to the program that registered it; comes back with each press.
struct HotKeyId {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;

    friend bool operator==(const HotKeyId&, const HotKeyId&) = default;
};

/// A handle that the service gives out; 0 is none. Releasing one twice, or one never given out, is
/// harmless.
using HotKeyRef = std::uint64_t;

/// Status of a call; 0 is success.
using EventStatus = std::int32_t;
constexpr EventStatus kNoError = 0;
constexpr EventStatus kEventParameterNotFound = -9870;
constexpr EventStatus kHotKeyInvalid = -9879;

/// A press. The identifier is that of the hot key where the status of reading it is kNoError.
struct HotKeyPress {
    EventStatus status = kNoError;
    HotKeyId hotKeyId;
};

/// The system-wide hot keys.
///
/// A key is a virtual key code (a physical key, whatever the keyboard layout) with modifiers in the
/// hot-key form, whose other bits are ignored.
/// Lock keys make no difference, and a key that is held down is one press. Main thread only.
class HotKeys {
public:
    struct Registered {
        EventStatus status = kNoError;
        HotKeyRef ref = 0;
    };

    virtual ~HotKeys() = default;

    /// kHotKeyInvalid, without a handle, for a key that the keyboard does not have. The same key
    /// may be registered more than once, and one that another program holds may be registered too:
    /// it sends no presses until that program lets go of it and the keyboard mapping changes, or
    /// isTakenByAnotherProgram() is asked of it.
    /// Unregistering a key and registering it again in one turn of the main loop costs nothing.
    virtual Registered registerHotKey(std::uint32_t virtualKeyCode, std::uint32_t modifiers,
                                      HotKeyId id) = 0;
    virtual void unregisterHotKey(HotKeyRef ref) = 0;

    /// Calls back on the main loop for each press of a registered key.
    virtual Registration onPressed(std::function<void(const HotKeyPress&)> callback) = 0;

    /// Whether another program holds this key, so that registering it has no effect. Need not be
    /// registered by us: a key that is not is tried out and let go.
    virtual bool isTakenByAnotherProgram(std::uint32_t virtualKeyCode,
                                         std::uint32_t modifiers) const = 0;
};

} // namespace panewright
