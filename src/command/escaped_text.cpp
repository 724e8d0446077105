#include "command/escaped_text.h"

#include <array>
#include <cstdio>

namespace panewright::command {
namespace {

/// How the control characters of one notation are written.
struct Notation {
    /// For a code below 0x80 without a letter of its own; printf's format, which takes the code.
    const char* ascii;
    /// Characters that a backslash precedes.
    std::string_view quoted;
};

constexpr Notation kShell{R"(\x%02x)", "\\"};
constexpr Notation kJson{R"(\u%04x)", "\\\""};

std::string formatted(const char* format, unsigned code) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), format, code);
    return text.data();
}

std::string escaped(std::string_view text, const Notation& notation) {
    constexpr unsigned char kFirstOfC1 = 0xC2; // the first byte of U+0080 to U+00BF
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
        if (notation.quoted.find(text[at]) != std::string_view::npos) {
            result.append({'\\', text[at]});
        } else if (byte == '\n' || byte == '\t' || byte == '\r') {
            result.append({'\\', byte == '\n' ? 'n' : byte == '\t' ? 't' : 'r'});
        } else if (byte < 0x20 || byte == 0x7F) {
            result += formatted(notation.ascii, byte);
        } else if (byte == kFirstOfC1 && next >= 0x80 && next < 0xA0) {
            result += formatted(R"(\u%04x)", next);
            ++at;
        } else {
            result += text[at];
        }
    }
    return result;
}

} // namespace

std::string escapedText(std::string_view text) {
    return escaped(text, kShell);
}

std::string jsonText(std::string_view text) {
    return '"' + escaped(text, kJson) + '"';
}

} // namespace panewright::command
