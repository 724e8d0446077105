#include "desktop/freedesktop/desktop_entry_text.h"

#include <algorithm>

namespace panewright {

std::string_view trimmed(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = line.find_first_not_of(kBlanks);
    return first == std::string_view::npos
               ? std::string_view()
               : line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

std::map<std::string_view, std::string_view> desktopEntryKeys(std::string_view text) {
    std::map<std::string_view, std::string_view> keys;
    bool isInside = false;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[')) {
            if (isInside) {
                break;
            }
            isInside = line == "[Desktop Entry]";
        } else if (const auto equals = line.find('=');
                   isInside && equals != std::string_view::npos && !line.starts_with('#')) {
            keys.emplace(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
        }
    }
    return keys;
}

std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const char escaped = value[++i];
        text += std::string_view("sntr").find(escaped) == std::string_view::npos ? escaped : ' ';
    }
    return text;
}

} // namespace panewright
