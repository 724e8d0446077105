#pragma once

#include <string>
#include <string_view>

namespace panewright {

/// The text with every byte that is not part of well-formed UTF-8 replaced by U+FFFD. Text from
/// other programs (a window class in Latin-1, say) need not be UTF-8.
std::string wellFormedUtf8(std::string_view text);

/// Whether there is nothing in the text but white space: Unicode's space separators (general
/// category Zs) and the tab; no line ends.
bool isBlank(std::string_view text);

/// How many bytes that text takes: three times as many at most.
std::size_t wellFormedUtf8Size(std::string_view text);

} // namespace panewright
