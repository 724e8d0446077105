#pragma once

#include <csignal>

namespace panewright {

/// From now on, writing what nobody reads any more fails (EPIPE) instead of ending the process: the
/// reader of our log may go at any time. A program that we start must be given the default back.
inline void ignoreBrokenPipes() {
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace panewright
