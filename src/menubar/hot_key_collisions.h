#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace panewright {

class WindowState;

/// The number that two states' hot keys collide on: that of the registry's table; 0 for a state
/// without a hot key.
std::uint64_t combinationNumber(const WindowState& state);

/// The states whose hot keys hold: of those with the same combination number the last one, so the
/// lists go from the weakest claim to the strongest.
std::vector<std::shared_ptr<WindowState>>
statesWithoutCollisions(const std::vector<std::vector<std::shared_ptr<WindowState>>>& lists);

} // namespace panewright
