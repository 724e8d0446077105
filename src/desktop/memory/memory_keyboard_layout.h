#pragma once

#include "platform/keyboard_layout.h"

#include <map>
#include <stdexcept>
#include <utility>

namespace panewright {

/// A layout that a test lays out: keys without an entry type nothing.
class MemoryKeyboardLayout : public KeyboardLayout {
public:
    using Keys = std::map<std::uint16_t, std::string>;

    void setKeys(Keys keys) { keys_ = std::move(keys); }
    /// Makes every question fail with an exception, as a broken layout library would.
    void setBroken(bool broken) { broken_ = broken; }

    std::string displayText(std::uint16_t virtualKeyCode) const override {
        if (broken_) {
            throw std::runtime_error("no keyboard layout");
        }
        const auto key = keys_.find(virtualKeyCode);
        return key == keys_.end() ? "" : key->second;
    }

private:
    Keys keys_;
    bool broken_ = false;
};

} // namespace panewright
