#pragma once

#include "support/keyboard.h"
#include "support/test_client.h"
#include "support/window_manager.h"
#include "support/x_server.h"

#include <string>

namespace panewright::test {

/// A whole desktop of a test's own: X server, window manager, keyboard.
class Desktop {
public:
    Desktop();
    /// An empty name stands for no window manager at all.
    explicit Desktop(const XServer::Options& options, std::string_view windowManager = "openbox");

    XServer& server() { return server_; }
    const XClient& x() const { return x_; }
    const Keyboard& keyboard() const { return keyboard_; }
    const std::string& display() const { return server_.display(); }

    /// Starts a window manager, which takes over from the one before.
    void manageWith(std::string_view windowManager);
    void killWindowManager() { windowManager_->kill(); }

    /// What a program needs to run on this desktop.
    Environment environment() const;

    /// A layout for setxkbmap, such as "fr", with more arguments after it.
    void setKeyboardLayout(const std::string& layout,
                           const std::vector<std::string>& arguments = {}) const;

private:
    PrivateHome home_;
    XServer server_;
    XClient x_;
    Keyboard keyboard_;
    std::unique_ptr<WindowManager> windowManager_;
};

} // namespace panewright::test
