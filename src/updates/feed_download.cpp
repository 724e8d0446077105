#include "updates/feed_download.h"

#include <curl/curl.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>

namespace panewright::updates {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kLargest = 1 << 20; // bytes
constexpr auto kLongest = 30s;
constexpr auto kLongestConnecting = 10s;
constexpr int kMostRedirections = 5;

struct Release {
    void operator()(CURL* curl) const { curl_easy_cleanup(curl); }
};

struct Body {
    std::string content;
    bool isTooLarge = false;
};

std::size_t take(const char* bytes, std::size_t size, std::size_t count, void* body) {
    auto& [content, isTooLarge] = *static_cast<Body*>(body);
    if (content.size() + size * count > kLargest) {
        isTooLarge = true;
        return 0; // ends the transfer
    }
    content.append(bytes, size * count);
    return size * count;
}

/// One request: the content, where to go instead, or why not.
struct Response {
    std::optional<NoFeed> failure;
    std::string redirection; // empty for none
    std::string content;
};

Response request(const FeedAddress& address, Clock::duration timeLeft) {
    const std::unique_ptr<CURL, Release> owned(curl_easy_init());
    CURL* const curl = owned.get();
    Body body;
    std::array<char, CURL_ERROR_SIZE> error{};
    using std::chrono::milliseconds;
    const auto set = [&](CURLoption option, auto value) { curl_easy_setopt(curl, option, value); };
    set(CURLOPT_URL, address.text.c_str());
    set(CURLOPT_PROTOCOLS_STR, address.isLocal ? "http" : "https");
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_TIMEOUT_MS,
        static_cast<long>(std::chrono::duration_cast<milliseconds>(timeLeft).count()));
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(milliseconds(kLongestConnecting).count()));
    set(CURLOPT_MAXFILESIZE, static_cast<long>(kLargest));
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_ERRORBUFFER, error.data());
    set(CURLOPT_WRITEFUNCTION, take);
    set(CURLOPT_WRITEDATA, static_cast<void*>(&body));
    if (address.isLocal) {
        set(CURLOPT_PROXY, ""); // a proxy is another machine
    }
    const auto result = curl_easy_perform(curl);
    if (body.isTooLarge || result == CURLE_FILESIZE_EXCEEDED) {
        return {.failure = NoFeed{false, "it is larger than 1 MB"}};
    }
    if (result != CURLE_OK) {
        return {.failure = NoFeed{false, error[0] ? error.data() : curl_easy_strerror(result)}};
    }
    long status = 0;
    const char* redirection = nullptr;
    curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(curl, CURLINFO_REDIRECT_URL, &redirection);
    if (redirection) {
        return {.redirection = redirection};
    }
    if (status != 200) {
        return {.failure = NoFeed{false, "the server answers " + std::to_string(status)}};
    }
    return {.content = std::move(body.content)};
}

} // namespace

std::variant<std::string, NoFeed> downloadFeed(const FeedAddress& first) {
    const auto end = Clock::now() + kLongest;
    auto address = first;
    for (int i = 0; i <= kMostRedirections; ++i) {
        const auto timeLeft = end - Clock::now();
        if (timeLeft <= 0s) {
            return NoFeed{false, "it takes too long"};
        }
        auto response = request(address, timeLeft);
        if (response.failure) {
            return *response.failure;
        }
        if (response.redirection.empty()) {
            return std::move(response.content);
        }
        const auto next = feedAddress(response.redirection);
        if (!next || (next->isLocal && !first.isLocal)) {
            return NoFeed{true, response.redirection};
        }
        address = *next;
    }
    return NoFeed{false, "it leads from one address to the next"};
}

} // namespace panewright::updates
