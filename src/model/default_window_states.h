#pragma once

#include "model/window_state.h"

namespace panewright {

/// The four built-in states, newly made, in the order of their shortcuts Option-1 to Option-4.
WindowStateArray makeDefaultWindowStates();

} // namespace panewright
