#pragma once

#include <string>

namespace panewright {

/// The text with every byte that is not part of well-formed UTF-8 replaced by U+FFFD. Text from
/// other programs (a window class in Latin-1, say) need not be UTF-8.
std::string wellFormedUtf8(std::string text);

} // namespace panewright
