#pragma once

#include "base/registration.h"

#include <functional>

namespace panewright {

/// How the system tells that the user asks for the program though it is running: starts it once
/// more, or opens it from the desktop. Main thread only; callbacks come on the main loop.
class ReopenRequests {
public:
    virtual ~ReopenRequests() = default;

    /// Calls back for each request that comes from now on.
    virtual Registration onReopen(std::function<void()> callback) = 0;
};

} // namespace panewright
