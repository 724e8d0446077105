#pragma once

#include "archive/archive_value.h"

#include <optional>
#include <string>
#include <string_view>

namespace panewright {

/// The XML form of a property list of text, booleans, numbers, arrays and dictionaries with text
/// keys, in their order. Nil for a value that has no place in one.
std::optional<std::string> xmlPropertyList(const ArchiveValue& value);

/// The reverse; nil for what is no XML property list of those kinds. Any text is safe to pass.
std::optional<ArchiveValue> valueOfXmlPropertyList(std::string_view xml);

} // namespace panewright
