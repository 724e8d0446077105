#pragma once

#include <optional>
#include <string>

namespace panewright::updates {

/// Where a feed lies.
struct FeedAddress {
    std::string text;
    /// HTTP from this machine, whoever may listen to it; everything else is HTTPS.
    bool isLocal = false;
};

/// Nil for an address that no feed may have: of another scheme, of another machine without
/// encryption, or with a user's name in it.
std::optional<FeedAddress> feedAddress(const std::string& text);

/// Whether a page of the web stands at the address, by its form.
bool isWebAddress(const std::string& text);

} // namespace panewright::updates
