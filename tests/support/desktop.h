#pragma once

#include "support/keyboard.h"
#include "support/test_client.h"
#include "support/window_manager.h"

#include <algorithm>
#include <string>
#include <utility>

namespace panewright::test {

/// A private X server's screen, of which nobody sees anything.
struct Screen {
    int width = 1600;
    int height = 900;
    /// More arguments of the server, such as {"-extension", "XKEYBOARD"}.
    std::vector<std::string> arguments;
};

/// A whole desktop of a test's own: X server, window manager, keyboard.
class Desktop {
public:
    /// An empty name stands for no window manager at all.
    explicit Desktop(const Screen& screen = {}, std::string_view windowManager = "openbox")
        : server_(commandLine(screen), home_.environment()) {
        if (!windowManager.empty()) {
            manageWith(windowManager);
        }
    }

    const XClient& x() const { return x_; }
    const Keyboard& keyboard() const { return keyboard_; }
    const std::string& display() const { return display_; }

    /// Starts a window manager, which takes over from the one before.
    void manageWith(std::string_view windowManager) {
        // The one before goes when the new one has taken over.
        auto successor = std::make_unique<WindowManager>(windowManager, x_, environment());
        windowManager_ = std::move(successor);
    }
    /// Its windows have been given back when this returns, which takes the focus from them.
    void killWindowManager() {
        windowManager_->kill();
        eventually([this] { return !isManaged(x_); });
    }
    void killServer() { server_.kill(); }

    /// What a program needs to run on this desktop.
    Environment environment() const {
        Environment environment = home_.environment();
        environment["DISPLAY"] = display_;
        return environment;
    }
    /// Runs a command such as setxkbmap to its end.
    void run(const std::vector<std::string>& command) const { runToEnd(command, environment()); }

    /// Connects and disconnects displays until there are these, WIDTHxHEIGHT+X+Y. The first one is
    /// the primary display.
    void setDisplays(const std::vector<std::string>& wanted) {
        while (displays_.size() > wanted.size() ||
               !std::equal(displays_.begin(), displays_.end(), wanted.begin())) {
            displays_.pop_back();
            run({"xrandr", "--delmonitor", "D" + std::to_string(displays_.size())});
        }
        for (std::size_t i = displays_.size(); i < wanted.size(); ++i) {
            std::string geometry = wanted[i];
            geometry.replace(geometry.find('x'), 1, "/300x").insert(geometry.find('+'), "/200");
            run({"xrandr", "--setmonitor", (i == 0 ? "*D" : "D") + std::to_string(i), geometry,
                 i == 0 ? "screen" : "none"});
        }
        displays_ = wanted;
    }

private:
    static std::vector<std::string> commandLine(const Screen& screen) {
        const auto size = std::to_string(screen.width) + "x" + std::to_string(screen.height);
        // The server takes a free number and writes it when it is ready. Without -noreset it would
        // forget its monitors and keyboard whenever its last client leaves.
        std::vector<std::string> command{"Xvfb",       "-displayfd", "1",         "-screen", "0",
                                         size + "x24", "-noreset",   "-nolisten", "tcp"};
        command.insert(command.end(), screen.arguments.begin(), screen.arguments.end());
        return command;
    }

    PrivateHome home_;
    ChildProcess server_;
    std::string display_ = ":" + server_.firstLine();
    XClient x_{display_};
    Keyboard keyboard_{x_};
    std::unique_ptr<WindowManager> windowManager_;
    std::vector<std::string> displays_;
};

} // namespace panewright::test
