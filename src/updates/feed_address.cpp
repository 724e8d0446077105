#include "updates/feed_address.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace panewright::updates {
namespace {

struct UrlRelease {
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
struct TextRelease {
    void operator()(char* text) const { curl_free(text); }
};

/// An address, taken apart; empty parts where it is none.
class Url {
public:
    explicit Url(const std::string& text) : url_(curl_url()) {
        isValid_ = curl_url_set(url_.get(), CURLUPART_URL, text.c_str(), 0) == CURLUE_OK &&
                   std::ranges::none_of(text, [](unsigned char c) { return c <= ' ' || c == 127; });
    }
    std::string part(CURLUPart which) const {
        char* found = nullptr;
        if (!isValid_ || curl_url_get(url_.get(), which, &found, 0) != CURLUE_OK) {
            return "";
        }
        const std::unique_ptr<char, TextRelease> owned(found);
        return found;
    }

private:
    std::unique_ptr<CURLU, UrlRelease> url_;
    bool isValid_ = false;
};

/// Names and addresses that never leave the machine (RFC 6761, 6.3; RFC 1122, 3.2.1.3).
bool isThisMachine(std::string_view host) {
    return host == "localhost" || host == "127.0.0.1" || host == "[::1]";
}

} // namespace

std::optional<FeedAddress> feedAddress(const std::string& text) {
    const Url url(text);
    const auto scheme = url.part(CURLUPART_SCHEME);
    const auto host = url.part(CURLUPART_HOST);
    if (host.empty() || !url.part(CURLUPART_USER).empty()) {
        return std::nullopt;
    }
    if (scheme == "https") {
        return FeedAddress{text, false};
    }
    return scheme == "http" && isThisMachine(host) ? std::optional(FeedAddress{text, true})
                                                   : std::nullopt;
}

bool isWebAddress(const std::string& text) {
    const Url url(text);
    const auto scheme = url.part(CURLUPART_SCHEME);
    return (scheme == "https" || scheme == "http") && !url.part(CURLUPART_HOST).empty();
}

} // namespace panewright::updates
