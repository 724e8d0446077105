#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace panewright::updates {

/// One version of the program that a feed offers.
struct Release {
    std::string buildVersion;
    std::string shortVersion; // what people call it; the build's where the feed has no other
    std::string link;         // the page about it; empty for none
};

/// Why a feed is none.
struct Malformed {
    std::string message;
};

/// The release for this system with the highest build version; nil where the feed has none.
///
/// The feed is an RSS channel with an item for each release (appcast form). An item has its build
/// in a child "version" or in that attribute of its "enclosure", "shortVersionString" likewise, and
/// its page in "link". It is for this system if the enclosure's "os" is "linux", or not there.
/// Prefixes of names do not matter. Items whose build version is no number are left out; a document
/// type is refused, as it could make a small document large.
std::variant<std::optional<Release>, Malformed> newestRelease(std::string_view feed);

} // namespace panewright::updates
