#pragma once

#include "model/window_state.h"
#include "platform/workspace.h"

#include <optional>

namespace panewright {

class Model;

/// The states that apply while the application is frontmost: the built-in ones, the global ones and
/// its own, from the weakest claim on a hot key to the strongest. Without an application its own
/// are none.
WindowStateArray applicableWindowStates(const Model& model,
                                        const std::optional<RunningApplication>& frontmost);

} // namespace panewright
