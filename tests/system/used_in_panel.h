#pragma once

#include "support/test_client.h"
#include "system/program.h"

#include <csignal>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace panewright::test {

/// A panel with nothing but a tray, the program's icon at its right end, beside a window manager.
struct TrayPanel {
    const char* windowManager;
    const char* program;
    Point icon;
};
inline constexpr TrayPanel kTint2{"openbox", "tint2", {1585, 885}};
inline constexpr TrayPanel kXfce4Panel{"xfwm4", "xfce4-panel", {1585, 13}};

inline void PrintTo(const TrayPanel& panel, std::ostream* out) {
    *out << panel.program;
}

/// The program in a panel, used with mouse and keyboard. Keys are as xdotool names them.
class UsedInPanel : public testing::Test {
protected:
    explicit UsedInPanel(const TrayPanel& tray = kTint2) : tray_(tray) {
        environment_["DBUS_SESSION_BUS_ADDRESS"] = bus_.firstLine();
        environment_["NO_AT_BRIDGE"] = "1";
        window_.activate();
        start();
        // The icon waits for a panel.
        panel_.emplace(std::vector<std::string>{tray.program}, environment_);
    }
    void start() { program_.emplace(environment_); }
    void quit() {
        (*program_)->sendSignal(SIGTERM);
        EXPECT_EQ((*program_)->waitForEnd(), 0);
    }

    void press(const std::vector<std::string>& keys) const {
        std::vector<std::string> command{"xdotool", "key", "--clearmodifiers", "--delay", "60"};
        command.insert(command.end(), keys.begin(), keys.end());
        desktop_.run(command);
    }
    void type(const std::string& text) const { desktop_.run({"xdotool", "type", text}); }

    bool isMenuOpen() const {
        ChildProcess search({"xdotool", "search", "--onlyvisible", "--name", "^Panewright menu"},
                            environment_);
        return search.waitForEnd() == 0;
    }
    /// With the window active. A click that comes before the icon may hit the window's button in
    /// the panel, which minimizes it.
    void openMenu(const TestClient& window, const char* button = "1") const {
        const auto click = [&] {
            if (!window.isActive()) {
                window.activate();
            }
            const auto& icon = tray_.icon;
            desktop_.run({"xdotool", "mousemove", std::to_string(int(icon.x)),
                          std::to_string(int(icon.y)), "click", button});
            return eventually([&] { return isMenuOpen(); }, std::chrono::seconds(2));
        };
        ASSERT_TRUE(eventually(click, std::chrono::seconds(20))); // the icon may still be coming
    }
    /// Opens the popover for the window, which is the active one.
    void openPopover(const TestClient& window) const {
        ASSERT_TRUE(window.isActive());
        openMenu(window);
        press({"Down", "Return"}); // the first item
        // While the focus changes no window is active, and keys go nowhere.
        ASSERT_TRUE(eventually([&] { return isPopoverActive(); }));
    }
    bool isPopoverActive() const {
        const auto& x = desktop_.x();
        return testing::Value(x.property(x.activeWindow(), "_NET_WM_STATE"),
                              testing::Contains(x.atom("_NET_WM_STATE_SKIP_TASKBAR")));
    }
    /// Saves the window's frame from the open popover, with a recorded shortcut and what else is
    /// pressed before Return.
    void save(const TestClient& window, const std::string& name, const std::string& shortcut,
              const std::vector<std::string>& more = {}) const {
        type(name);
        press({"Tab", "space"});
        press({shortcut});
        if (!more.empty()) {
            press(more);
            pause();
        }
        press({"Return"});
        EXPECT_TRUE(eventually([&] { return window.isActive(); })) << "got no focus back";
    }
    /// As long as a person takes to the next key: the keys of an application are taken once the
    /// program has seen that it is active, and a button takes its time to be pressed.
    static void pause() { std::this_thread::sleep_for(std::chrono::milliseconds(200)); }
    static void switchTo(const TestClient& window) {
        window.activate();
        pause();
    }
    Frame frameOf(const TestClient& window) const {
        return outerFrame(desktop_.x(), window.window());
    }
    std::string store() const {
        const auto data = desktop_.environment()["XDG_DATA_HOME"];
        return runToEnd({PYTHON, FOREIGN_STORE, "read", data + "/Panewright/keyEvents.data"},
                        environment_);
    }

    const TrayPanel tray_;
    const Desktop desktop_{{}, tray_.windowManager};
    const TestClient window_{desktop_.display()};
    Environment environment_ = desktop_.environment();
    ChildProcess bus_{kSessionBus, environment_};
    std::optional<ChildProcess> panel_;
    std::optional<Program> program_;
};

/// The same in several panels.
class UsedInPanels : public UsedInPanel, public testing::WithParamInterface<TrayPanel> {
protected:
    UsedInPanels() : UsedInPanel(GetParam()) {}
};
inline std::string nameOfManager(const testing::TestParamInfo<TrayPanel>& suite) {
    return suite.param.windowManager;
}

} // namespace panewright::test
