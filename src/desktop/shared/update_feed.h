#pragma once

#include "base/registration.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace panewright {

/// A version that is newer than this one.
struct NewerVersion {
    std::string version; // what people call it
    std::string page;    // a web address; empty for none
};

struct NoNewerVersion {};

/// Why nobody knows.
struct FeedFailure {
    enum class Cause {
        kForbidden,   // the feed, or what it leads to, lies where no feed may lie
        kUnreachable, // not to be had
        kMalformed,   // no feed
    };

    Cause cause = Cause::kUnreachable;
    std::string message; // the address, or the system's words
};

using FeedAnswer = std::variant<NewerVersion, NoNewerVersion, FeedFailure>;

/// Looks into a feed for newer versions. Main thread only.
class UpdateFeed {
public:
    virtual ~UpdateFeed() = default;

    /// Calls back once, on the main loop, unless the registration is released before.
    virtual Registration look(const std::string& address,
                              std::function<void(const FeedAnswer&)> answered) = 0;

    /// When somebody looked last, whatever came of it; nil if nobody did.
    virtual std::optional<std::chrono::system_clock::time_point> lastLook() const = 0;
};

} // namespace panewright
