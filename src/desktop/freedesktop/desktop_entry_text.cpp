#include "desktop/freedesktop/desktop_entry_text.h"

#include "desktop/freedesktop/key_file.h"

namespace panewright {

std::map<std::string_view, std::string_view> desktopEntryKeys(std::string_view text) {
    std::map<std::string_view, std::string_view> keys;
    bool isInside = false;
    while (!text.empty()) {
        const auto line = readKeyFileLine(takeLine(text), "#");
        if (line.group) {
            if (isInside) {
                break;
            }
            isInside = line.group == "Desktop Entry";
        } else if (line.key && isInside) {
            keys.emplace(*line.key, line.value);
        }
    }
    return keys;
}

std::string escaped(std::string_view text) {
    constexpr std::string_view kPlain = "\\\n\t\r";
    constexpr std::string_view kCodes = "\\ntr";
    std::string value;
    for (const char character : text) {
        const auto code = kPlain.find(character);
        value += code == std::string_view::npos ? std::string(1, character)
                                                : std::string{'\\', kCodes[code]};
    }
    return value;
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
