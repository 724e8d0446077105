#pragma once

#include "support/session_bus.h"
#include "support/x_client.h"

#include <memory>
#include <string_view>

namespace panewright::test {

/// openbox with Alt+F5 bound to what the built-in state of Alt+2 does on 1600 by 900 pixels.
constexpr std::string_view kOpenboxWithKey = "openbox with Alt+F5";

/// A window manager with a configuration of its own, in charge when the constructor returns. Takes
/// over from one that runs already.
class WindowManager {
public:
    /// One of those that window_manager.cpp lists.
    WindowManager(std::string_view name, const XClient& x, const PrivateHome& home,
                  const Environment& environment);

    static bool isInstalled(std::string_view name);

    /// Ends it as a crash would.
    void kill();
    bool hasEnded() { return process_->exitStatus().has_value(); }

private:
    std::unique_ptr<SessionBus> bus_;
    std::unique_ptr<ChildProcess> process_;
};

} // namespace panewright::test
