#pragma once

#include <memory>
#include <vector>

namespace panewright {

class WindowState;

/// The four built-in states, newly made, in the order of their shortcuts Option-1 to Option-4.
std::vector<std::shared_ptr<WindowState>> makeDefaultWindowStates();

} // namespace panewright
