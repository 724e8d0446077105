#pragma once

#include "model/window_state.h"

#include <cstdint>
#include <vector>

namespace panewright {

/// The number that two states' hot keys collide on: that of the registry's table; 0 for a state
/// without a hot key.
std::uint64_t combinationNumber(const WindowState& state);

/// The states whose hot keys hold: of those with the same combination number the last one, so the
/// lists go from the weakest claim to the strongest.
WindowStateArray statesWithoutCollisions(const std::vector<WindowStateArray>& lists);

} // namespace panewright
