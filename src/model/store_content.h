#pragma once

#include "archive/archive_value.h"
#include "base/bytes.h"
#include "model/window_state.h"

#include <optional>

namespace panewright {

/// All that is archived of the states, copied, so that another thread may archive it while the
/// states change.
ArchiveValue snapshotOf(const WindowStates& states);

/// The content of the store file: the keyed archive of the dictionary, in a gzip stream of level 9.
/// Nil when it could not be read back, holding too much, or memory does not suffice.
std::optional<Bytes> archivedSnapshot(const ArchiveValue& snapshot);

/// The reverse; also takes an archive that is not compressed. Nil for anything that is not a
/// dictionary from text to arrays of states, for what would hold more than kMaxReadingMemory, and
/// when memory does not suffice. Arrays with equal keys are one, in their order. Any bytes are safe
/// to pass.
std::optional<WindowStates> unarchivedWindowStates(const Bytes& fileContent);

} // namespace panewright
