#pragma once

#include "platform/hot_keys.h"

#include <cstdint>
#include <vector>

namespace panewright {

/// Which events a handler is installed for.
struct EventTypeSpec {
    std::uint32_t eventClass = 0;
    std::uint32_t eventKind = 0;

    friend bool operator==(const EventTypeSpec&, const EventTypeSpec&) = default;
};

constexpr std::uint32_t kEventClassKeyboard = 0x6B657962; // 'keyb'
constexpr std::uint32_t kEventHotKeyPressed = 5;
constexpr EventTypeSpec kHotKeyPressed{kEventClassKeyboard, kEventHotKeyPressed};

/// A handle of an installed handler; 0 is none. Releasing one twice, or one never given out, is
/// harmless.
using EventHandlerRef = std::uint64_t;

/// kNoError claims the press.
using EventHandlerFunction = EventStatus (*)(const HotKeyPress& press, void* userData);

/// The handlers of presses that the registry has installed, one for each hot key.
class HotKeyHandlers {
public:
    EventHandlerRef install(EventTypeSpec type, EventHandlerFunction handler, void* userData) {
        handlers_.push_back({++lastRef_, type, handler, userData});
        return lastRef_;
    }

    void remove(EventHandlerRef ref) {
        std::erase_if(handlers_, [ref](const Installed& handler) { return handler.ref == ref; });
    }

    /// Asks the handlers of that type, the newest first, until one claims the press.
    void deliver(EventTypeSpec type, const HotKeyPress& press) const {
        const auto snapshot = handlers_;
        for (auto handler = snapshot.rbegin(); handler != snapshot.rend(); ++handler) {
            if (handler->type == type && handler->function(press, handler->userData) == kNoError) {
                return;
            }
        }
    }

private:
    struct Installed {
        EventHandlerRef ref;
        EventTypeSpec type;
        EventHandlerFunction function;
        void* userData;
    };

    std::vector<Installed> handlers_;
    EventHandlerRef lastRef_ = 0;
};

} // namespace panewright
