#pragma once

#include "crash_report/raw_facts.h"

#include <cstdio>
#include <optional>

namespace panewright {

/// Writes what a person reads of a crash, but for the stack. Nil: nothing could be read of it.
void writeSummary(std::FILE* file, const std::optional<RawFacts>& facts);

/// Writes the stack, call by call, as looking for a name may end the process by its limits.
void writeStack(std::FILE* file, const RawFacts& facts);

} // namespace panewright
