#pragma once

#include "desktop/linux/crash_facts.h"

#include <string>

namespace panewright {

/// Such as "SIGSEGV (11), nothing is mapped there, address 0x10".
std::string textOfSignal(const CrashSignal& signal);

} // namespace panewright
