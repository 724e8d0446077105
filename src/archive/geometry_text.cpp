#include "archive/geometry_text.h"

#include <fmt/format.h>

#include <array>
#include <locale>
#include <optional>
#include <sstream>

namespace panewright {
namespace {

std::string number(double value) {
    return fmt::format("{}", value);
}

/// The `Count` numbers of the text, or nothing unless the rest of it is exactly `shape` (with "#"
/// for each number), white space aside.
template <std::size_t Count>
std::optional<std::array<double, Count>> numbersIn(std::string_view text, std::string_view shape) {
    std::istringstream input{std::string(text)};
    input.imbue(std::locale::classic());
    std::array<double, Count> numbers{};
    std::size_t next = 0;
    for (const char expected : shape) {
        if (expected == '#') {
            if (!(input >> numbers.at(next++))) {
                return std::nullopt;
            }
        } else if (char found = 0; !(input >> found) || found != expected) {
            return std::nullopt;
        }
    }
    return (input >> std::ws).eof() ? std::optional(numbers) : std::nullopt;
}

} // namespace

std::string NSStringFromRect(const Rect& rect) {
    return fmt::format("{{{{{}, {}}}, {}}}", number(rect.x), number(rect.y),
                       NSStringFromSize(rect.size()));
}

std::string NSStringFromSize(Size size) {
    return fmt::format("{{{}, {}}}", number(size.width), number(size.height));
}

Rect NSRectFromString(std::string_view text) {
    const auto n = numbersIn<4>(text, "{{#,#},{#,#}}");
    return n ? Rect{(*n)[0], (*n)[1], (*n)[2], (*n)[3]} : Rect{};
}

Size NSSizeFromString(std::string_view text) {
    const auto n = numbersIn<2>(text, "{#,#}");
    return n ? Size{(*n)[0], (*n)[1]} : Size{};
}

} // namespace panewright
