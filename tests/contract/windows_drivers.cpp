#include "contract/late_desktop.h"
#include "contract/windows_driver.h"
#include "contract/x11_rig.h"

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

class MemoryDriver : public WindowsDriver {
public:
    Accessibility& accessibility() override { return desktop_.accessibility; }
    Workspace& workspace() override { return desktop_.workspace; }
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
    bool eventually(const std::function<bool()>& condition) override {
        desktop_.mainLoop.runPending();
        return condition();
    }

private:
    MemoryDesktop desktop_;
};

class X11Driver : public WindowsDriver {
public:
    Accessibility& accessibility() override { return rig_.ports->accessibility; }
    Workspace& workspace() override { return rig_.ports->workspace; }
    ProcessId ownPid() const override { return getpid(); }
    WindowId open(const OpenedWindow& window) override {
        // Whether it can be resized decides what is put around it.
        auto client = std::make_unique<test::TestClient>(
            rig_.desktop.display(),
            test::ClientOptions{.windowClass = window.program,
                                .pid = static_cast<std::uint32_t>(window.pid),
                                .minimumSize = window.minimumSize,
                                .maximumSize = window.maximumSize});
        const auto id = client->window();
        limit(id, window);
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
    bool eventually(const std::function<bool()>& condition) override {
        return rig_.eventually(condition);
    }

private:
    /// A client's limits are those inside of its frame.
    void limit(xcb_window_t window, const OpenedWindow& to) {
        const auto& x = rig_.desktop.x();
        auto around = x.property(window, "_NET_FRAME_EXTENTS"); // left, right, top, bottom
        around.resize(4);
        const auto width = [&](Size size) {
            return std::max(1U, static_cast<std::uint32_t>(size.width) - around[0] - around[1]);
        };
        const auto height = [&](Size size) {
            return std::max(1U, static_cast<std::uint32_t>(size.height) - around[2] - around[3]);
        };
        constexpr std::uint32_t kMinimumAndMaximum = 3U << 4U; // ICCCM, WM_SIZE_HINTS
        std::vector<std::uint32_t> hints(18);
        hints[0] = kMinimumAndMaximum;
        if (to.minimumSize != Size{1, 1}) {
            hints[5] = width(to.minimumSize);
            hints[6] = height(to.minimumSize);
        }
        hints[7] = width(to.maximumSize);
        hints[8] = height(to.maximumSize);
        x.setProperty(window, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
        x.synchronize();
    }

    // The server cannot tell that all windows are this process's: they say whose they are.
    X11Rig rig_{test::Screen{.arguments = {"-extension", "X-Resource"}}};
    std::map<WindowId, std::unique_ptr<test::TestClient>> clients_;
};

class LateDriver : public WindowsDriver {
public:
    LateDriver() { compositor_.addApplication({kOwnPid, kOwnIdentifier, kOwnIdentifier}); }

    Accessibility& accessibility() override { return accessibility_; }
    Workspace& workspace() override { return workspace_; }
    ProcessId ownPid() const override { return kOwnPid; }
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
            loop_.advance(std::chrono::milliseconds(1));
        }
        return condition();
    }

private:
    static constexpr ProcessId kOwnPid = 1;

    MemoryMainLoop loop_;
    LateCompositor compositor_{loop_};
    LateWindows windows_{compositor_, loop_};
    WindowsAccessibility accessibility_{windows_};
    LateWorkspace workspace_{compositor_, windows_, kOwnPid};
};

} // namespace

std::unique_ptr<WindowsDriver> driveMemoryDesktop() {
    return std::make_unique<MemoryDriver>();
}

std::unique_ptr<WindowsDriver> driveX11() {
    return std::make_unique<X11Driver>();
}

std::unique_ptr<WindowsDriver> driveLateDesktop() {
    return std::make_unique<LateDriver>();
}

} // namespace panewright
