#pragma once

#include "desktop/linux/evdev_key_codes.h"
#include "desktop/shared/native_key_codes.h"

namespace panewright {

/// X key codes of a server that numbers keys as the kernel does.
class EvdevNativeKeyCodes : public NativeKeyCodes {
public:
    std::optional<std::uint16_t> virtualKeyCode(std::uint32_t nativeScanCode,
                                                std::uint32_t /*nativeVirtualKey*/) const override {
        return nativeScanCode < kEvdevToXKeyCode
                   ? std::nullopt
                   : virtualKeyCodeOf(nativeScanCode - kEvdevToXKeyCode);
    }
};

} // namespace panewright
