#pragma once

#include "archive/archive_value.h"
#include "base/bytes.h"
#include "model/window_state.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// States in the order of their saving.
using WindowStateArray = std::vector<std::shared_ptr<WindowState>>;

/// The arrays by "defaults", "globals" or the bundle identifier of an application; none is null.
using WindowStates = std::map<std::string, std::shared_ptr<WindowStateArray>, std::less<>>;

/// All that is archived of the states, copied, so that another thread may archive it while the
/// states change.
ArchiveValue snapshotOf(const WindowStates& states);

/// The content of the store file: the keyed archive of the dictionary, in a gzip stream of level 9.
/// Nil when it could not be read back, being too large, or memory does not suffice.
std::optional<Bytes> archivedSnapshot(const ArchiveValue& snapshot);

/// The reverse; also takes an archive that is not compressed. Nil for anything that is not a
/// dictionary from text to arrays of states. Any bytes are safe to pass.
std::optional<WindowStates> unarchivedWindowStates(const Bytes& fileContent);

} // namespace panewright
