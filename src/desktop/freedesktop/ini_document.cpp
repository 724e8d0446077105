#include "desktop/freedesktop/ini_document.h"

#include "desktop/freedesktop/desktop_entry_text.h"

#include <algorithm>

namespace panewright {
namespace {

/// The name of the section that the line starts, if it is such a line.
std::optional<std::string_view> sectionIn(std::string_view line) {
    line = trimmed(line);
    if (line.size() < 2 || line.front() != '[' || line.back() != ']') {
        return std::nullopt;
    }
    return trimmed(line.substr(1, line.size() - 2));
}

bool isComment(std::string_view line) {
    line = trimmed(line);
    return !line.empty() && (line.front() == '#' || line.front() == ';');
}

} // namespace

IniDocument::IniDocument(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines_.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
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
        const std::string_view line = lines_[index];
        if (const auto name = sectionIn(line)) {
            isInSection = *name == section;
        } else if (const std::size_t equals = line.find('=');
                   isInSection && !isComment(line) && equals != std::string_view::npos &&
                   trimmed(line.substr(0, equals)) == key) {
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
    const std::string_view line = lines_[found.back()];
    return std::string(trimmed(line.substr(line.find('=') + 1)));
}

void IniDocument::setValue(std::string_view section, std::string_view key, std::string_view value) {
    std::string line = std::string(key) + '=' + std::string(value);
    if (const auto found = linesOf(section, key); !found.empty()) {
        std::string& old = lines_[found.back()];
        old = line + (!old.empty() && old.back() == '\r' ? "\r" : "");
        return;
    }
    auto start = std::find_if(lines_.begin(), lines_.end(),
                              [&](const std::string& l) { return sectionIn(l) == section; });
    if (start == lines_.end()) {
        if (!lines_.empty() && !trimmed(lines_.back()).empty()) {
            lines_.emplace_back();
        }
        start = lines_.insert(lines_.end(), '[' + std::string(section) + ']');
    }
    // Behind the last line of the section that is not blank.
    const bool isCrLf = !start->empty() && start->back() == '\r';
    auto last = start;
    for (auto at = std::next(start); at != lines_.end() && !sectionIn(*at); ++at) {
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
