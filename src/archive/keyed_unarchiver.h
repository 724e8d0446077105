#pragma once

#include "archive/archive_value.h"
#include "base/bytes.h"
#include "base/memory_budget.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace panewright {

/// How deep objects, arrays and dictionaries of an archive may be nested in each other.
inline constexpr int kMaxArchiveDepth = 32;

/// Makes an object from its fields. Null means that the archive is not to be trusted.
using ArchiveFactory = std::function<std::shared_ptr<KeyedCoding>(const KeyedDecoder&)>;

/// The classes that may come out of an archive, by "$classname". Nothing else is ever made.
using ArchiveClasses = std::map<std::string, ArchiveFactory, std::less<>>;

/// Reads keyed archives in the binary form.
class KeyedUnarchiver {
public:
    /// The root (which may be nil), or nothing when the bytes are not a keyed archive or anything
    /// in it that is reached from the root is not as it should be: a reference that leads nowhere
    /// or back to where it came from, a class that is not known, a limit that is passed. Objects
    /// that the archive holds once come out once. Text is well-formed UTF-8 without a NUL, where it
    /// ends. Any bytes are safe to pass. What all this holds beside the data is taken from the
    /// budget.
    static std::optional<ArchiveValue>
    unarchiveObjectWithData(const Bytes& data, const ArchiveClasses& classes, MemoryBudget& budget);
};

} // namespace panewright
