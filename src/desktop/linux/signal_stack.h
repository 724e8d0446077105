#pragma once

namespace panewright {

/// Gives the calling thread a stack for signal handlers, until it ends: a thread whose own stack is
/// full has no room to tell of its crash. For each thread of ours, at its beginning. Once more does
/// nothing.
void useOwnSignalStack();

} // namespace panewright
