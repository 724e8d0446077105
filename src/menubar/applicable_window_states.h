#pragma once

#include "model/window_state.h"
#include "platform/workspace.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>

namespace panewright {

class Model;

/// The states that apply while the application is frontmost: the built-in ones, the global ones and
/// its own, from the weakest claim on a hot key to the strongest. Without an application its own
/// are none.
WindowStateArray applicableWindowStates(const Model& model,
                                        const std::optional<RunningApplication>& frontmost);

/// Where those stand whose hot keys hold, by combination number, the registry's: of equal ones the
/// last. 0 is that of the states without a hot key.
std::map<std::uint64_t, std::size_t> placesWithoutCollisions(const WindowStateArray& states);

} // namespace panewright
