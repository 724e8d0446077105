// Looks into a feed for a version of Panewright that is newer than the build of the second
// argument; the first one is the feed's address. Prints one of these words and then lines of text,
// and ends with 0; no line has a control character in it.
//
//   newer        what people call the version, and the page about it (empty for none)
//   none
//   forbidden    the address from which no feed may come
//   unreachable  why
//   malformed    why

#include "updates/appcast.h"
#include "updates/build_version.h"
#include "updates/feed_address.h"
#include "updates/feed_download.h"

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <variant>

namespace {

using namespace panewright::updates;

constexpr rlim_t kMostMemory = rlim_t{512} << 20; // bytes, of which the libraries' files are most
constexpr rlim_t kMostProcessorTime = 10;         // seconds

void limit(int resource, rlim_t most) {
    const rlimit both{most, most};
    setrlimit(static_cast<__rlimit_resource>(resource), &both);
}

void print(const std::string& text) {
    std::string line;
    for (const char character : text) {
        line += static_cast<unsigned char>(character) < ' ' || character == 127 ? ' ' : character;
    }
    std::puts(line.c_str());
}

int answer(const std::string& word, const std::string& text) {
    print(word);
    print(text);
    return EXIT_SUCCESS;
}

int answerFor(const std::string& feed, const BuildVersion& ours) {
    const auto newest = newestRelease(feed);
    if (const auto* const malformed = std::get_if<Malformed>(&newest)) {
        return answer("malformed", malformed->message);
    }
    const auto& release = *std::get_if<std::optional<Release>>(&newest);
    if (!release || *BuildVersion::of(release->buildVersion) <= ours) {
        print("none");
        return EXIT_SUCCESS;
    }
    answer("newer", release->shortVersion);
    print(isWebAddress(release->link) ? release->link : "");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char* argv[]) {
    const auto ours = argc == 3 ? BuildVersion::of(argv[2]) : std::nullopt;
    if (!ours) {
        std::fputs("panewright-updates: give the address of a feed and the number of a build\n",
                   stderr);
        return EXIT_FAILURE;
    }
    limit(RLIMIT_AS, kMostMemory);
    limit(RLIMIT_CPU, kMostProcessorTime);
    limit(RLIMIT_CORE, 0);
    const auto address = feedAddress(argv[1]);
    if (!address) {
        return answer("forbidden", argv[1]);
    }
    const auto feed = downloadFeed(*address);
    if (const auto* const none = std::get_if<NoFeed>(&feed)) {
        return answer(none->isForbidden ? "forbidden" : "unreachable", none->message);
    }
    return answerFor(std::get<std::string>(feed), *ours);
}
