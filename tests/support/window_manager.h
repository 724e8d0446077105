#pragma once

#include "support/child_process.h"
#include "support/x_client.h"

#include <memory>
#include <string_view>

namespace panewright::test {

/// A window manager with the configuration of the tests, in charge when the constructor returns.
/// Takes over from one that runs already.
class WindowManager {
public:
    /// One of those that window_manager.cpp lists. openbox puts a window at (80, 45) with 1440 by
    /// 810 for Alt+F5; no other key is bound.
    WindowManager(std::string_view name, const XClient& x, Environment environment);

    static bool isInstalled(std::string_view name);

    void kill() { process_->kill(); }

private:
    std::unique_ptr<ChildProcess> bus_;
    std::unique_ptr<ChildProcess> process_;
};

} // namespace panewright::test
