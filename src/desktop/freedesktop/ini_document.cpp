#include "desktop/freedesktop/ini_document.h"

#include "desktop/freedesktop/key_file.h"

#include <algorithm>

namespace panewright {
namespace {

KeyFileLine readLine(std::string_view line) {
    return readKeyFileLine(line, "#;");
}

} // namespace

IniDocument::IniDocument(std::string_view text) {
    while (!text.empty()) {
        lines_.emplace_back(takeLine(text));
    }
}

std::string IniDocument::text() const {
    std::string text;
    for (const std::string& line : lines_) {
        text += line;
        text += '\n';
    }
    return text;
}

std::vector<std::size_t> IniDocument::linesOf(std::string_view section,
                                              std::string_view key) const {
    std::vector<std::size_t> found;
    bool isInSection = false;
    for (std::size_t index = 0; index < lines_.size(); ++index) {
        const auto line = readLine(lines_[index]);
        if (line.group) {
            isInSection = *line.group == section;
        } else if (isInSection && line.key == key) {
            found.push_back(index);
        }
    }
    return found;
}

std::optional<std::string> IniDocument::value(std::string_view section,
                                              std::string_view key) const {
    const auto found = linesOf(section, key);
    if (found.empty()) {
        return std::nullopt;
    }
    return std::string(readLine(lines_[found.back()]).value);
}

void IniDocument::setValue(std::string_view section, std::string_view key, std::string_view value) {
    std::string line = std::string(key) + '=' + std::string(value);
    if (const auto found = linesOf(section, key); !found.empty()) {
        std::string& old = lines_[found.back()];
        old = line + (!old.empty() && old.back() == '\r' ? "\r" : "");
        return;
    }
    auto start = std::find_if(lines_.begin(), lines_.end(),
                              [&](const std::string& l) { return readLine(l).group == section; });
    if (start == lines_.end()) {
        if (!lines_.empty() && !trimmed(lines_.back()).empty()) {
            lines_.emplace_back();
        }
        start = lines_.insert(lines_.end(), '[' + std::string(section) + ']');
    }
    // Behind the last line of the section that is not blank.
    const bool isCrLf = !start->empty() && start->back() == '\r';
    auto last = start;
    for (auto at = std::next(start); at != lines_.end() && !readLine(*at).group; ++at) {
        last = trimmed(*at).empty() ? last : at;
    }
    lines_.insert(std::next(last), isCrLf ? line + '\r' : line);
}

void IniDocument::removeValue(std::string_view section, std::string_view key) {
    auto found = linesOf(section, key);
    for (; !found.empty(); found.pop_back()) {
        lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(found.back()));
    }
}

} // namespace panewright
