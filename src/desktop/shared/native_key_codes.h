#pragma once

#include <cstdint>
#include <optional>

namespace panewright {

/// What the toolkit's key events say about the key, as virtual key codes. Callable from any thread.
class NativeKeyCodes {
public:
    virtual ~NativeKeyCodes() = default;

    /// The virtual key code of the physical key that a toolkit's event names by its native scan
    /// code (on X11 the X key code) and native virtual key, of which a window system may tell only
    /// one; nil for a key that has none.
    virtual std::optional<std::uint16_t> virtualKeyCode(std::uint32_t nativeScanCode,
                                                        std::uint32_t nativeVirtualKey) const = 0;
};

} // namespace panewright
