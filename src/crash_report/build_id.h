#pragma once

#include "base/bytes.h"

#include <string>

namespace panewright {

/// The build id in hexadecimal digits, which tells one build of a program or library from others,
/// of the first bytes of the file (the note NT_GNU_BUILD_ID, elf(5)). Empty where they have none.
std::string buildIdOf(const Bytes& start);

} // namespace panewright
