#include "desktop/freedesktop/ini_value.h"

#include "base/unicode.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <locale>
#include <optional>
#include <sstream>

namespace panewright {
namespace {

constexpr std::string_view kBytesPrefix = "base64:";
constexpr std::string_view kBase64 =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string base64Of(const Bytes& bytes) {
    std::string text;
    for (std::size_t start = 0; start < bytes.size(); start += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - start);
        unsigned group = 0;
        for (std::size_t index = 0; index < 3; ++index) {
            group = group << 8 | (index < count ? bytes[start + index] : 0U);
        }
        for (std::size_t index = 0; index < 4; ++index) {
            text += index <= count ? kBase64[group >> (18 - 6 * index) & 0x3F] : '=';
        }
    }
    return text;
}

std::optional<Bytes> bytesOfBase64(std::string_view text) {
    while (!text.empty() && text.back() == '=') {
        text.remove_suffix(1);
    }
    Bytes bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char character : text) {
        const std::size_t digit = kBase64.find(character);
        if (digit == std::string_view::npos) {
            return std::nullopt;
        }
        bits = bits << 6 | static_cast<unsigned>(digit);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes.push_back(static_cast<std::uint8_t>(bits >> count & 0xFF));
        }
    }
    return bytes;
}

std::string textOfReal(double value) {
    std::string text = fmt::format("{}", value);
    // Without a fraction it would read as a whole number.
    return text.find_first_not_of("-0123456789") == std::string::npos ? text + ".0" : text;
}

std::optional<std::int64_t> wholeNumberIn(std::string_view text) {
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

std::optional<double> realNumberIn(std::string_view text) {
    if (text.find_first_not_of("+-.eE0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    std::istringstream input{std::string(text)};
    input.imbue(std::locale::classic());
    double value = 0;
    return input >> value && input.peek() == std::char_traits<char>::eof() ? std::optional(value)
                                                                           : std::nullopt;
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char character : text) {
        switch (character) {
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        case '"':
        case '\\':
            result += '\\';
            [[fallthrough]];
        default:
            result += character;
        }
    }
    return result + '"';
}

std::string unquoted(std::string_view text) {
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        char character = text[index];
        if (character == '\\' && index + 1 < text.size()) {
            character = text[++index];
            character = character == 'n' ? '\n' : character == 'r' ? '\r' : character;
        }
        result += character;
    }
    return result;
}

std::string textOfString(const std::string& text) {
    const bool isPlain = !text.empty() && text.find_first_of("\n\r") == std::string::npos &&
                         text.find_first_of(" \t") != 0 &&
                         text.find_last_of(" \t") != text.size() - 1 &&
                         iniValueOf(text) == DefaultsValue(text);
    return isPlain ? text : quoted(text);
}

/// One function for each kind that a value may have.
struct TextOfValue {
    std::string operator()(bool flag) const { return flag ? "true" : "false"; }
    std::string operator()(std::int64_t number) const { return fmt::format("{}", number); }
    std::string operator()(double number) const { return textOfReal(number); }
    std::string operator()(const std::string& text) const { return textOfString(text); }
    std::string operator()(const Bytes& bytes) const {
        return std::string(kBytesPrefix) + base64Of(bytes);
    }
};

} // namespace

std::string iniTextOf(const DefaultsValue& value) {
    return std::visit(TextOfValue{}, value);
}

DefaultsValue iniValueOf(std::string_view text) {
    if (text == "true" || text == "false") {
        return text == "true";
    }
    if (const auto number = wholeNumberIn(text)) {
        return *number;
    }
    if (const auto number = realNumberIn(text)) {
        return *number;
    }
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        return wellFormedUtf8(unquoted(text.substr(1, text.size() - 2)));
    }
    if (text.substr(0, kBytesPrefix.size()) == kBytesPrefix) {
        if (auto bytes = bytesOfBase64(text.substr(kBytesPrefix.size()))) {
            return *std::move(bytes);
        }
    }
    return wellFormedUtf8(std::string(text));
}

std::string iniKeyOf(std::string_view key) {
    std::string text;
    for (const char character : key) {
        const bool isPlain = (character >= '0' && character <= '9') ||
                             (character >= 'A' && character <= 'Z') ||
                             (character >= 'a' && character <= 'z') || character == '.' ||
                             character == '_' || character == '-';
        text += isPlain ? std::string(1, character)
                        : fmt::format("%{:02X}", static_cast<unsigned char>(character));
    }
    return text;
}

} // namespace panewright
