#pragma once

#include "platform/user_defaults.h"

#include <string>
#include <string_view>

namespace panewright {

/// A setting as one line of text and back, keeping its kind: "true", "18", "0.5", "base64:AAEC",
/// and text as it is, or in quotes with backslashes where it would read as something else.
std::string iniTextOf(const DefaultsValue& value);
DefaultsValue iniValueOf(std::string_view text);

/// A key as it may stand before the "=": what is not a letter, a digit, ".", "_" or "-" as %XX.
std::string iniKeyOf(std::string_view key);

} // namespace panewright
