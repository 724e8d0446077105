#pragma once

#include "support/child_process.h"
#include "support/x_client.h"

#include <string_view>

namespace panewright::test {

/// A window manager with a configuration of its own, in charge when the constructor returns.
class WindowManager {
public:
    /// One of those that window_manager.cpp lists; only openbox is among the packages that the
    /// project installs.
    WindowManager(std::string_view name, const XClient& x, const PrivateHome& home,
                  const Environment& environment);

private:
    ChildProcess process_;
};

} // namespace panewright::test
