#pragma once

#include "base/lifetime.h"
#include "platform/main_loop.h"

#include <map>
#include <utility>
#include <xcb/xcb.h>

namespace panewright {

/// Remembers what the server answered of a window for the rest of this turn of the main loop, so
/// that asking several times costs one round trip.
template <class Value>
class TurnCache {
public:
    explicit TurnCache(MainLoop& mainLoop) : mainLoop_(mainLoop) {}

    /// `read()` gives the value when it is not known yet.
    template <class Read>
    Value valueOf(xcb_window_t window, Read read) {
        if (const auto known = values_.find(window); known != values_.end()) {
            return known->second;
        }
        if (values_.empty()) {
            mainLoop_.post(lifetime_.guard([this] { forget(); }));
        }
        return values_.emplace(window, read()).first->second;
    }

    void forget() { values_.clear(); }

private:
    MainLoop& mainLoop_;
    std::map<xcb_window_t, Value> values_;
    Lifetime lifetime_;
};

} // namespace panewright
