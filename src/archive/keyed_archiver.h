#pragma once

#include "archive/archive_value.h"
#include "base/bytes.h"
#include "base/memory_budget.h"

#include <optional>
#include <string>
#include <string_view>

namespace panewright {

/// Names of the keyed-archive format that its writer and its reader share.
inline constexpr std::string_view kArchiverName = "NSKeyedArchiver";
inline constexpr std::uint64_t kArchiverVersion = 100000;
/// "NS.special" of a value object that holds a size.
inline constexpr std::uint64_t kSpecialSize = 2;

/// A key of an object's own as it stands in the file, where keys that begin with "$" are taken.
std::string escapedArchiveKey(std::string_view key);

/// Writes keyed archives: binary property lists that the platform's own unarchiver reads.
class KeyedArchiver {
public:
    /// Objects that occur more than once are written once. Text that is not UTF-8 is mended with
    /// U+FFFD, and ends at its first NUL. Does not call back after it returned; callable from any
    /// thread as long as nobody changes the objects meanwhile.
    static Bytes archivedDataWithRootObject(const ArchiveValue& root);

    /// Nil when reading the archive would hold more than the budget, from which that is taken.
    static std::optional<Bytes> archivedDataWithRootObject(const ArchiveValue& root,
                                                           MemoryBudget& readersBudget);
};

} // namespace panewright
