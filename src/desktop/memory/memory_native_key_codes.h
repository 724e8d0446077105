#pragma once

#include "platform/native_key_codes.h"

#include <map>
#include <utility>

namespace panewright {

/// A keyboard whose keys a test numbers.
class MemoryNativeKeyCodes : public NativeKeyCodes {
public:
    /// Virtual key codes by native scan codes.
    void setKeys(std::map<std::uint32_t, std::uint16_t> keys) { keys_ = std::move(keys); }

    std::optional<std::uint16_t> virtualKeyCode(std::uint32_t nativeScanCode) const override {
        const auto key = keys_.find(nativeScanCode);
        return key == keys_.end() ? std::nullopt : std::optional(key->second);
    }

private:
    std::map<std::uint32_t, std::uint16_t> keys_;
};

} // namespace panewright
