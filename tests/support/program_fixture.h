#pragma once

#include "app/app_delegate.h"
#include "app/shared_instances.h"
#include "desktop/memory/memory_desktop.h"
#include "desktop/memory/memory_standard_folders.h"
#include "model/store_lock.h"
#include "model/window_state.h"
#include "services/launch_agent_format.h"
#include "support/temporary_folder.h"

#include <memory>
#include <string>

namespace panewright {

/// The whole program on a desktop in memory, with a store of its own.
class LaunchedProgram {
public:
    void launch() {
        delegate.applicationWillFinishLaunching();
        delegate.applicationDidFinishLaunching();
    }

    /// A program with one window, which becomes the active one.
    WindowId open(ProcessId pid, const std::string& bundleId, const Rect& frame) {
        desktop.windows.addApplication({pid, bundleId, bundleId});
        const auto window = desktop.windows.openWindow({.pid = pid, .frame = frame});
        desktop.windows.activateWindow(window);
        desktop.mainLoop.runPending();
        return window;
    }

    /// Adds a state that puts a window at `frame` on the main display, on Option and the key.
    std::shared_ptr<WindowState> addState(const std::string& name, bool isGlobal,
                                          const std::string& bundleId, std::uint64_t keyCode,
                                          const Rect& frame) {
        auto state = WindowState::windowStateIsDefault(false, isGlobal);
        state->setWindowStateName(name);
        state->setAppBundleId(bundleId);
        state->setAppName(bundleId);
        state->setOriginalWindowRect(frame);
        state->setOriginalQuartzDisplayBounds(displayWithId(desktop.displays.snapshot(), 1).bounds);
        state->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(keyCode, 0x80000));
        delegate.statusItemController()->addWindowState(state);
        delegate.statusItemController()->addEventHandlers();
        return state;
    }

    /// Presses Option and the key; false when no hot key takes it.
    bool press(std::uint32_t keyCode) {
        const bool taken = desktop.hotKeys.press(keyCode, 0x800);
        desktop.mainLoop.runPending();
        return taken;
    }

    Rect frame(WindowId window) const { return desktop.windows.find(window)->frame; }

    TemporaryFolder folder;
    MemoryStandardFolders folders{folder.path()};
    StoreLock lock{folders, ""};
    LaunchAgentFormat loginItems{folder.path()};
    MemoryDesktop desktop;
    Ports ports = desktop.ports(folders, loginItems);
    SharedInstances shared{ports, lock};
    AppDelegate delegate{ports, {desktop.views, desktop.menuView, desktop.exportedMenu}};
};

} // namespace panewright
