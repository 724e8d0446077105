#include "contract/desktop_driver.h"
#include "contract/late_desktop.h"
#include "contract/x11_rig.h"
#include "desktop/linux/evdev_key_codes.h"

#include <linux/input-event-codes.h>
#include <unistd.h>

#include <map>

namespace panewright {
namespace {

constexpr auto kOwnIdentifier = "com.quillfen.Panewright";

MemoryWindows::Window windowInMemory(const OpenedWindow& window) {
    return {.pid = window.pid,
            .frame = window.frame,
            .minimumSize = window.minimumSize,
            .maximumSize = window.maximumSize,
            .isResizable = window.minimumSize != window.maximumSize};
}

template <class Desktop>
DesktopPorts portsOf(Desktop& desktop) {
    return {desktop.accessibility, desktop.displays, desktop.hotKeys, desktop.workAreas,
            desktop.workspace};
}

class MemoryDriver : public DesktopDriver {
public:
    DesktopPorts ports() override { return portsOf(desktop_); }
    ProcessId ownPid() const override { return MemoryDesktop::kOwnPid; }
    WindowId open(const OpenedWindow& window) override {
        desktop_.windows.addApplication({window.pid, window.program, window.program});
        return desktop_.windows.openWindow(windowInMemory(window));
    }
    void close(WindowId window) override { desktop_.windows.closeWindow(window); }
    void activate(WindowId window) override { desktop_.windows.activateWindow(window); }
    void setFrame(WindowId window, const Rect& frame) override {
        desktop_.windows.setFrame(window, frame);
    }
    void setDisplays(const std::vector<Rect>& bounds) override {
        DisplaySnapshot displays;
        for (const auto& rect : bounds) {
            const auto id = static_cast<DisplayId>(displays.size() + 1);
            displays.push_back({.id = id, .bounds = rect});
        }
        desktop_.displays.setDisplays(displays);
    }
    void tap(std::uint32_t keyCode) override { desktop_.hotKeys.press(keyCode, kHotKeyOption); }
    void takeByAnotherProgram(std::uint32_t keyCode) override {
        desktop_.hotKeys.takeByAnotherProgram(keyCode, kHotKeyOption);
    }
    void letGoByAnotherProgram(std::uint32_t keyCode) override {
        desktop_.hotKeys.letGoByAnotherProgram(keyCode, kHotKeyOption);
    }
    bool eventually(const std::function<bool()>& condition) override {
        desktop_.mainLoop.runPending();
        return condition();
    }

protected:
    MemoryDesktop desktop_;
};

class X11Driver : public DesktopDriver {
public:
    DesktopPorts ports() override { return portsOf(*rig_.ports); }
    ProcessId ownPid() const override { return getpid(); }
    WindowId open(const OpenedWindow& window) override {
        // Whether it can be resized decides what is put around it.
        test::ClientOptions options{.windowClass = window.program,
                                    .pid = static_cast<std::uint32_t>(window.pid),
                                    .minimumSize = window.minimumSize,
                                    .maximumSize = window.maximumSize};
        auto client = std::make_unique<test::TestClient>(rig_.desktop.display(), options);
        const auto id = client->window();
        // A client's limits are those inside of its frame.
        const auto frame = test::outerFrame(rig_.desktop.x(), id);
        const auto inside = [&](Size size) {
            return Size{std::max(1.0, size.width - frame.width + options.client.width),
                        std::max(1.0, size.height - frame.height + options.client.height)};
        };
        options.minimumSize = inside(window.minimumSize);
        options.maximumSize = inside(window.maximumSize);
        client->setHints(options);
        clients_.emplace(id, std::move(client));
        setFrame(id, window.frame);
        return id;
    }
    void close(WindowId window) override { clients_.erase(window); }
    void activate(WindowId window) override {
        rig_.desktop.x().activate(static_cast<xcb_window_t>(window));
    }
    void setFrame(WindowId window, const Rect& frame) override {
        test::placeWindow(rig_.desktop.x(), static_cast<xcb_window_t>(window), frame);
    }
    void setDisplays(const std::vector<Rect>& bounds) override {
        std::vector<std::string> monitors;
        monitors.reserve(bounds.size());
        for (const auto& rect : bounds) {
            monitors.push_back(std::to_string(int(rect.width)) + "x" +
                               std::to_string(int(rect.height)) + "+" +
                               std::to_string(int(rect.x)) + "+" + std::to_string(int(rect.y)));
        }
        rig_.desktop.setDisplays(monitors);
    }
    void tap(std::uint32_t keyCode) override {
        rig_.loop.runPending(); // grabs what was registered
        rig_.desktop.keyboard().tap(KEY_LEFTALT, evdevCode(keyCode));
    }
    void takeByAnotherProgram(std::uint32_t keyCode) override {
        const auto key = test::Keyboard::keycode(evdevCode(keyCode));
        EXPECT_TRUE(eventually([&] { // our letting go may still be under way
            return rig_.desktop.x().grabKey(XCB_MOD_MASK_1, key);
        }));
    }
    void letGoByAnotherProgram(std::uint32_t keyCode) override {
        const auto& x = rig_.desktop.x();
        xcb_ungrab_key(x.connection(), test::Keyboard::keycode(evdevCode(keyCode)), x.root(),
                       XCB_MOD_MASK_1);
        x.synchronize();
    }
    bool eventually(const std::function<bool()>& condition) override {
        return rig_.eventually(condition);
    }

private:
    static std::uint16_t evdevCode(std::uint32_t keyCode) {
        return static_cast<std::uint16_t>(evdevCodesOf(keyCode).front());
    }

    // The server cannot tell that all windows are this process's: they say whose they are.
    X11Rig rig_{test::Screen{.arguments = {"-extension", "X-Resource"}}};
    std::map<WindowId, std::unique_ptr<test::TestClient>> clients_;
};

/// Its displays and keys are those of the desktop in memory.
class LateDriver : public MemoryDriver {
public:
    LateDriver() {
        compositor_.addApplication({MemoryDesktop::kOwnPid, kOwnIdentifier, kOwnIdentifier});
    }

    DesktopPorts ports() override {
        return {accessibility_, desktop_.displays, desktop_.hotKeys, desktop_.workAreas, windows_};
    }
    WindowId open(const OpenedWindow& window) override {
        compositor_.addApplication({window.pid, window.program, window.program});
        return compositor_.open(windowInMemory(window));
    }
    void close(WindowId window) override { compositor_.close(window); }
    void activate(WindowId window) override { compositor_.activate(window); }
    void setFrame(WindowId window, const Rect& frame) override {
        compositor_.setFrame(window, frame);
    }
    bool eventually(const std::function<bool()>& condition) override {
        constexpr int kTries = 500;
        for (int i = 0; i < kTries && !condition(); ++i) {
            desktop_.mainLoop.advance(std::chrono::milliseconds(1));
        }
        return condition();
    }

private:
    LateCompositor compositor_{desktop_.mainLoop};
    LateWindows windows_{compositor_, MemoryDesktop::kOwnPid};
    WindowsAccessibility accessibility_{windows_};
};

} // namespace

std::unique_ptr<DesktopDriver> driveMemoryDesktop() {
    return std::make_unique<MemoryDriver>();
}

std::unique_ptr<DesktopDriver> driveX11() {
    return std::make_unique<X11Driver>();
}

std::unique_ptr<DesktopDriver> driveLateDesktop() {
    return std::make_unique<LateDriver>();
}

} // namespace panewright
