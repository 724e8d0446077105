#pragma once

#include "desktop/memory/memory_alerts.h"
#include "desktop/memory/memory_application_icons.h"
#include "desktop/memory/memory_bundles.h"
#include "desktop/memory/memory_displays.h"
#include "desktop/memory/memory_hot_keys.h"
#include "desktop/memory/memory_images.h"
#include "desktop/memory/memory_keyboard_layout.h"
#include "desktop/memory/memory_main_loop.h"
#include "desktop/memory/memory_scripting.h"
#include "desktop/memory/memory_services.h"
#include "desktop/memory/memory_status_item.h"
#include "desktop/memory/memory_user_defaults.h"
#include "desktop/memory/memory_views.h"
#include "desktop/memory/memory_windows.h"
#include "desktop/memory/memory_work_areas.h"
#include "desktop/memory/memory_workspace.h"
#include "desktop/shared/windows_accessibility.h"
#include "platform/ports.h"

namespace panewright {

/// A whole desktop without a screen. It keeps state as a desktop would, so that what the program
/// did to it can be looked at.
struct MemoryDesktop {
    static constexpr ProcessId kOwnPid = 1;

    MemoryDesktop() { windows.addApplication({kOwnPid, program.bundleIdentifier(), "Panewright"}); }

    MemoryMainLoop mainLoop;
    MemoryProgram program;
    MemoryWindows windows{mainLoop};
    MemoryDisplays displays;
    MemoryWorkAreas workAreas{displays};
    WindowsAccessibility accessibility{windows};
    MemoryWorkspace workspace{windows, kOwnPid};
    MemoryApplicationIcons icons;
    MemoryImages images;
    MemoryHotKeys hotKeys{mainLoop};
    MemoryKeyboardLayout keyboardLayout;
    MemoryStatusItem statusItem;
    MemoryMenuView menuView;
    MemoryMenuExporter exportedMenu;
    MemoryScripting scripting;
    MemoryViews views{windows, kOwnPid};
    MemoryTextServices text;
    MemoryUserDefaults userDefaults;
    MemoryAlerts alerts;
    MemoryBundles bundles;
    MemoryBeeper beeper;
    MemoryAnalytics analytics;
    MemorySounds sounds;
    MemoryCrashReporter crashReporter;
    MemorySoftwareUpdater softwareUpdater;
    MemoryReopenRequests reopenRequests;
    MemoryBackgroundWork backgroundWork;

    /// All of it, with what has to do with files on the machine that the test runs on.
    Ports ports(const StandardFolders& folders, const LoginItemFormat& loginItems,
                ApplicationMoving& moving) {
        return {.accessibility = accessibility,
                .alerts = alerts,
                .analytics = analytics,
                .applicationIcons = icons,
                .applicationMoving = moving,
                .backgroundWork = backgroundWork,
                .beeper = beeper,
                .crashReporter = crashReporter,
                .displays = displays,
                .hotKeys = hotKeys,
                .images = images,
                .keyboardLayout = keyboardLayout,
                .loginItems = loginItems,
                .mainLoop = mainLoop,
                .program = program,
                .reopenRequests = reopenRequests,
                .softwareUpdater = softwareUpdater,
                .standardFolders = folders,
                .statusItem = statusItem,
                .text = text,
                .userDefaults = userDefaults,
                .workAreas = workAreas,
                .workspace = workspace};
    }
};

} // namespace panewright
