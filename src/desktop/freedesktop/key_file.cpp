#include "desktop/freedesktop/key_file.h"

#include <algorithm>

namespace panewright {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view takeLine(std::string_view& text) {
    const auto end = std::min(text.find('\n'), text.size());
    const auto line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

KeyFileLine readKeyFileLine(std::string_view line, std::string_view commentMarks) {
    line = trimmed(line);
    if (line.empty() || commentMarks.find(line.front()) != std::string_view::npos) {
        return {};
    }
    if (line.size() > 1 && line.front() == '[' && line.back() == ']') {
        return {.group = trimmed(line.substr(1, line.size() - 2))};
    }
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) {
        return {};
    }
    return {.key = trimmed(line.substr(0, equals)), .value = trimmed(line.substr(equals + 1))};
}

} // namespace panewright
