#pragma once

#include "model/window_state.h"

#include <cstddef>
#include <cstdint>
#include <map>

namespace panewright {

/// The number that two states' hot keys collide on: that of the registry's table; 0 for a state
/// without a hot key.
std::uint64_t combinationNumber(const WindowState& state);

/// Where the states stand whose hot keys hold, by combination number: of those with the same one
/// the last, so they go from the weakest claim to the strongest.
std::map<std::uint64_t, std::size_t> placesWithoutCollisions(const WindowStateArray& states);

} // namespace panewright
