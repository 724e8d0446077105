#pragma once

namespace panewright {

/// The nice value of the threads that serve the session bus. A flood of calls then waits in the
/// bus, which lets its sender wait, instead of taking the processors from the keys.
inline constexpr int kBusNiceValue = 10;

} // namespace panewright
