#pragma once

#include "platform/analytics.h"

#include <string_view>

namespace panewright {

/// The one entry point for usage events.
class Tracking {
public:
    explicit Tracking(Analytics& analytics) : analytics_(analytics) {}

    void trackEvent(std::string_view name, const EventAttributes& attributes = {}) const {
        analytics_.logCustomEvent(name, attributes);
    }

private:
    Analytics& analytics_;
};

// Names of the events.
constexpr std::string_view kApplyWindowStateEvent = "ApplyWindowState";

} // namespace panewright
