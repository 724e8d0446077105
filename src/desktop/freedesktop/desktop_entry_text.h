#pragma once

#include <map>
#include <string>
#include <string_view>

namespace panewright {

/// The keys of the group "Desktop Entry" with their values, as written; of a key that comes twice
/// the first. They point into the text.
std::map<std::string_view, std::string_view> desktopEntryKeys(std::string_view text);

/// A text as a value of the types string and localestring (Desktop Entry Specification, "Possible
/// value types"). Spaces stay, also a first one, which readers skip.
std::string escaped(std::string_view text);

/// A value without the escapes that every value may have. Tabs and line ends become spaces: nothing
/// that is shown in one line has any.
std::string unescaped(std::string_view value);

} // namespace panewright
