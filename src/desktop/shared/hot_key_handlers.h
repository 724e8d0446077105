#pragma once

#include "platform/hot_keys.h"

#include <vector>

namespace panewright {

/// The installed handlers of an adapter of HotKeys, in the order that the port asks for.
class HotKeyHandlers {
public:
    EventHandlerRef install(EventTypeSpec type, EventHandlerFunction handler, void* userData) {
        handlers_.push_back({++lastRef_, type, handler, userData});
        return lastRef_;
    }

    void remove(EventHandlerRef ref) {
        std::erase_if(handlers_, [ref](const Installed& handler) { return handler.ref == ref; });
    }

    /// Asks the handlers of the event's type, the newest first, until one claims it.
    void deliver(const HotKeyEvent& event) const {
        const auto snapshot = handlers_;
        for (auto handler = snapshot.rbegin(); handler != snapshot.rend(); ++handler) {
            if (handler->type == event.type &&
                handler->function(event, handler->userData) == kNoError) {
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
