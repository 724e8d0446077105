#pragma once

#include <optional>
#include <string_view>

namespace panewright {

// Files of keys below group lines: desktop entries (Desktop Entry Specification, "Basic format of
// the file"), themes, settings. A line may end as on other systems, and one that says nothing is
// passed over.

/// The text without the blanks around it.
std::string_view trimmed(std::string_view text);

/// Takes the first line off the text, without its line feed.
std::string_view takeLine(std::string_view& text);

/// What a line says, as views of it and without blanks around them: the name of a group, or a key
/// and its value as written, or nothing.
struct KeyFileLine {
    std::optional<std::string_view> group;
    std::optional<std::string_view> key;
    std::string_view value;
};

/// A line that starts with one of the comment marks says nothing.
KeyFileLine readKeyFileLine(std::string_view line, std::string_view commentMarks);

} // namespace panewright
