#pragma once

#include "crash_report/raw_facts.h"

#include <functional>
#include <string>

namespace panewright {

/// One call of the stack, as far as it has names.
struct StackFrame {
    std::uint64_t address = 0;
    std::string function; // empty: not known
    std::string source;   // "FILE:LINE"; empty: not known
    /// The program or library, empty where none is known, with its build id and the address counted
    /// from where it begins: the names can be looked up later with these, where its symbols are.
    std::string module;
    std::string buildId;
    std::uint64_t offset = 0;
};

/// The calls that the thread was in, the innermost first, each as soon as it is known. Names come
/// from the files that were mapped, where they are still the same. False where there are more calls
/// than anybody wants to read.
bool forEachFrame(const RawFacts& facts, const std::function<void(const StackFrame&)>& callback);

} // namespace panewright
