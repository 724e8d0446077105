#pragma once

#include <map>
#include <string>
#include <string_view>

namespace panewright {

using EventAttributes = std::map<std::string, std::string>;

/// The usage-analytics service. An adapter may drop every event.
class Analytics {
public:
    virtual ~Analytics() = default;

    virtual void logCustomEvent(std::string_view name, const EventAttributes& attributes) = 0;
};

} // namespace panewright
