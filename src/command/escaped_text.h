#pragma once

#include <string>
#include <string_view>

namespace panewright::command {

/// The text on one line that does nothing to a terminal: control characters (U+0000 to U+001F,
/// U+007F to U+009F) and the backslash as escapes that printf of the shells reads: \\, \n, \t, \r,
/// \x1b, \u0085.
std::string escapedText(std::string_view text);

/// The text as a JSON string with its quotes (RFC 8259), the same control characters escaped. The
/// text is well-formed UTF-8.
std::string jsonText(std::string_view text);

} // namespace panewright::command
