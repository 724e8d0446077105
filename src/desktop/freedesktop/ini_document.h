#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

/// The lines of an INI file. Lines that are not asked for, be they comments, other sections or
/// damaged, stay byte for byte as they were: INI libraries either refuse a file with a damaged line
/// or drop that line on writing.
class IniDocument {
public:
    IniDocument() = default;
    explicit IniDocument(std::string_view text);
    std::string text() const;

    /// The text behind the last "key=" of the section, without the blanks around it. Nil when there
    /// is none.
    std::optional<std::string> value(std::string_view section, std::string_view key) const;

    /// Replaces the value where it stands, else adds it at the end of the section, else adds the
    /// section. The value must not contain a line break.
    void setValue(std::string_view section, std::string_view key, std::string_view value);

    /// Harmless when there is none.
    void removeValue(std::string_view section, std::string_view key);

private:
    /// The indices of the lines that set the key.
    std::vector<std::size_t> linesOf(std::string_view section, std::string_view key) const;

    std::vector<std::string> lines_; // without the line feeds
};

} // namespace panewright
