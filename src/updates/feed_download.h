#pragma once

#include "updates/feed_address.h"

#include <string>
#include <variant>

namespace panewright::updates {

/// Why there is no feed.
struct NoFeed {
    /// Whether it would have been fetched from where no feed may lie.
    bool isForbidden = false;
    std::string message;
};

/// What stands at the address, of at most 1 MB, in at most 30 seconds. Redirections lead to HTTPS
/// alone, those of this machine also to this machine.
std::variant<std::string, NoFeed> downloadFeed(const FeedAddress& address);

} // namespace panewright::updates
