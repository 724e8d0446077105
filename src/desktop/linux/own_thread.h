#pragma once

namespace panewright {

/// The first call of each thread of ours but the main thread. Its crashes are reported from now on,
/// and it gives way to others by that nice value, from 0 (not at all) to 19; threads that it starts
/// inherit that. On Linux each thread has its own (setpriority(2), "C library/kernel differences").
void beginOwnThread(int niceValue);

} // namespace panewright
