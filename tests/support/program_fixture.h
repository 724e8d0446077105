#pragma once

#include "app/app_delegate.h"
#include "app/shared_instances.h"
#include "desktop/memory/memory_desktop.h"
#include "desktop/memory/memory_standard_folders.h"
#include "desktop/shared/bundle_application_moving.h"
#include "model/store_lock.h"
#include "model/window_state.h"
#include "services/launch_agent_format.h"
#include "support/print_geometry.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace panewright {

constexpr ProcessId kEditor = 42, kTerminal = 43;
constexpr const char* kEditorId = "org.example.Editor";
constexpr const char* kTerminalId = "org.example.Terminal";
constexpr Rect kScreen{0, 0, 1600, 900};
constexpr std::uint64_t kCapsLock = 0x10000, kShift = 0x20000, kOption = 0x80000;
constexpr std::uint16_t kSpace = 49, kDelete = 51, kEscape = 53;

/// The whole program on a desktop in memory, with one display and a store of its own. A test
/// launches it.
class ProgramFixture : public testing::Test {
protected:
    ProgramFixture() { desktop_.displays.setDisplays({{.id = 1, .bounds = kScreen}}); }
    void launch() {
        if (delegate_.applicationWillFinishLaunching() == AfterMoving::kGoOn) {
            delegate_.applicationDidFinishLaunching();
        }
    }
    StatusItemController& controller() { return *delegate_.statusItemController(); }

    /// A program with one window, which becomes the active one.
    WindowId openProgram(ProcessId pid, const std::string& bundleId, const Rect& frame) {
        desktop_.windows.addApplication({pid, bundleId, bundleId});
        const auto window = desktop_.windows.openWindow({.pid = pid, .frame = frame});
        desktop_.windows.activateWindow(window);
        desktop_.mainLoop.runPending();
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
        state->setOriginalQuartzDisplayBounds(
            displayWithId(desktop_.displays.snapshot(), 1).bounds);
        state->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(keyCode, 0x80000));
        controller().addWindowState(state);
        controller().addEventHandlers();
        return state;
    }

    /// Presses Option and the key; false when no hot key takes it.
    bool press(std::uint32_t keyCode) {
        const bool taken = desktop_.hotKeys.press(keyCode, 0x800);
        desktop_.mainLoop.runPending();
        return taken;
    }

    /// Chooses a row of the menu that a click on the icon opens, with these modifiers held.
    void choose(const std::string& row, std::uint64_t flags = 0) {
        desktop_.statusItem.click();
        EXPECT_TRUE(desktop_.menuView.choose(row, flags)) << row;
        desktop_.mainLoop.runPending();
    }
    static void record(QFShortcutRecorder& recorder, std::uint16_t keyCode,
                       std::uint64_t flags = kOption) {
        recorder.keyDown({kSpace, 0});
        recorder.flagsChanged(flags);
        recorder.keyDown({keyCode, flags});
    }

    Rect frameOf(WindowId window) const { return desktop_.windows.find(window)->frame; }
    ProcessId frontmost() { return desktop_.windows.frontmost()->processIdentifier; }

    TemporaryFolder folder_;
    MemoryStandardFolders folders_{folder_.path()};
    StoreLock lock_{folders_, ""};
    LaunchAgentFormat loginItems_{folder_.path()};
    MemoryDesktop desktop_;
    BundleApplicationMoving moving_{desktop_.bundles, desktop_.bundles, desktop_.bundles};
    Ports ports_ = desktop_.ports(folders_, loginItems_, moving_);
    SharedInstances shared_{ports_, lock_};
    AppDelegate delegate_{
        ports_, {desktop_.views, desktop_.menuView, desktop_.exportedMenu, desktop_.scripting}};
};

} // namespace panewright
