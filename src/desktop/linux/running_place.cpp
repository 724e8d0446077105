#include "desktop/linux/running_place.h"

#include "desktop/linux/environment.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>

namespace panewright {
namespace {

constexpr std::string_view kDisplayKey = "DISPLAY=";
constexpr std::string_view kProcessKey = "PID=";

/// "host:1.0" names screen 0 of the display "host:1" (X(7)).
std::string_view withoutScreen(std::string_view display) {
    const auto colon = display.rfind(':');
    const auto dot = colon == std::string_view::npos ? colon : display.find('.', colon);
    return display.substr(0, dot);
}

/// The rest of the line that begins so; nil without one.
std::optional<std::string_view> valueIn(std::string_view text, std::string_view key) {
    while (!text.empty()) {
        const auto line = text.substr(0, text.find('\n'));
        if (line.starts_with(key)) {
            return line.substr(key.size());
        }
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return std::nullopt;
}

} // namespace

RunningPlace placeOfThisProcess() {
    return {std::string(withoutScreen(environment("DISPLAY"))), getpid()};
}

std::string textOf(const RunningPlace& place) {
    return fmt::format("{}{}\n{}{}\n", kProcessKey, place.processId, kDisplayKey, place.display);
}

std::optional<RunningPlace> runningPlaceIn(std::string_view text) {
    const auto process = valueIn(text, kProcessKey);
    const auto display = valueIn(text, kDisplayKey);
    int number = 0;
    if (!process || !display ||
        std::from_chars(process->data(), process->data() + process->size(), number).ec !=
            std::errc()) {
        return std::nullopt;
    }
    return RunningPlace{std::string(*display), number};
}

} // namespace panewright
