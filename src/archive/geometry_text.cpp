#include "archive/geometry_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <locale>
#include <optional>
#include <sstream>

namespace panewright {
namespace {

/// Four numbers take less than half of it.
constexpr std::size_t kMaxLength = 256;

std::string number(double value) {
    return fmt::format("{}", value);
}

void skipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
}

std::optional<double> takeAnyNumber(std::string_view& text) {
    const std::size_t length = std::min(text.find_first_not_of("+-.0123456789eE"), text.size());
    std::istringstream input{std::string(text.substr(0, length))};
    input.imbue(std::locale::classic());
    double value = 0;
    if (!(input >> value) || input.peek() != std::char_traits<char>::eof()) {
        return std::nullopt;
    }
    text.remove_prefix(length);
    return value;
}

/// Reads one number from the start of the text and takes it away.
std::optional<double> takeNumber(std::string_view& text) {
    // A whole number of up to 15 digits, as nearly all are, is exact without the slow way.
    constexpr std::size_t kExactDigits = 15;
    std::size_t length = text.substr(0, 1) == "-" ? 1 : 0;
    const bool isNegative = length == 1;
    double value = 0;
    while (length < text.size() && text[length] >= '0' && text[length] <= '9' &&
           length < kExactDigits) {
        value = value * 10 + (text[length++] - '0');
    }
    const bool isWhole = length > (isNegative ? 1 : 0) && length < text.size() &&
                         std::string_view(",} \t").find(text[length]) != std::string_view::npos;
    if (isWhole) {
        text.remove_prefix(length);
        return isNegative ? -value : value;
    }
    return takeAnyNumber(text);
}

/// The `Count` numbers of the text, or nothing unless the rest of it is exactly `shape` (with "#"
/// for each number), white space aside.
template <std::size_t Count>
std::optional<std::array<double, Count>> numbersIn(std::string_view text, std::string_view shape) {
    if (text.size() > kMaxLength) {
        return std::nullopt;
    }
    std::array<double, Count> numbers{};
    std::size_t next = 0;
    for (const char expected : shape) {
        skipBlanks(text);
        if (expected == '#') {
            const auto number = takeNumber(text);
            if (!number) {
                return std::nullopt;
            }
            numbers.at(next++) = *number;
        } else if (text.empty() || text.front() != expected) {
            return std::nullopt;
        } else {
            text.remove_prefix(1);
        }
    }
    skipBlanks(text);
    return text.empty() ? std::optional(numbers) : std::nullopt;
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
