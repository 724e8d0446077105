#pragma once

#include "base/bytes.h"
#include "desktop/linux/crash_facts.h"

#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// No file that the handler writes comes near it, in bytes.
inline constexpr std::size_t kLargestRawFacts = std::size_t{8} << 20;

/// What stood in the memory of the program that crashed.
struct CrashMemory {
    CrashAddress address = 0;
    Bytes bytes;
};

/// The content of a file that a crash has left, of which anything but the signal may be missing.
struct RawFacts {
    CrashSignal signal{};
    std::string program;
    std::string exception;
    std::vector<std::string> logLines;
    CrashMemory stack;
    std::string maps; // as in proc(5)
    std::vector<CrashMemory> modules;
    /// Whether all that the handler had to tell is there.
    bool isWhole = false;
};

/// Whatever the bytes are. Nil where they do not begin as such a file does; what follows a record
/// that cannot be is left out.
std::optional<RawFacts> rawFactsOf(const Bytes& bytes);

} // namespace panewright
