#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>

namespace panewright {

using EventAttribute = std::variant<std::int64_t, std::string>;
using EventAttributes = std::map<std::string, EventAttribute>;

/// The usage-analytics service. An adapter may drop every event. Main thread only.
class Analytics {
public:
    virtual ~Analytics() = default;

    /// Returns at once; an event that cannot be sent is lost.
    virtual void logCustomEvent(std::string_view name, const EventAttributes& attributes) = 0;
};

} // namespace panewright
