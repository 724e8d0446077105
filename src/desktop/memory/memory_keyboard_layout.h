#pragma once

#include "platform/hot_keys.h"
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

    std::string inWords(std::uint32_t virtualKeyCode, std::uint32_t modifiers) const override {
        std::string text;
        for (const auto& [modifier, word] : kWords) {
            text += modifiers & modifier ? std::string(word) + '+' : std::string();
        }
        return text + displayText(static_cast<std::uint16_t>(virtualKeyCode));
    }
    std::string modifierInWords(std::uint32_t modifier) const override {
        for (const auto& [each, word] : kWords) {
            if (each == modifier) {
                return word;
            }
        }
        return {};
    }

private:
    static constexpr std::pair<std::uint32_t, const char*> kWords[] = {{kHotKeyControl, "Control"},
                                                                       {kHotKeyOption, "Option"},
                                                                       {kHotKeyShift, "Shift"},
                                                                       {kHotKeyCommand, "Command"}};

    Keys keys_;
    bool broken_ = false;
};

} // namespace panewright
