#pragma once

#include "desktop/shared/windows_accessibility.h"
#include "desktop/x11/active_windows.h"
#include "desktop/x11/desktop_entry_icons.h"
#include "desktop/x11/evdev_native_key_codes.h"
#include "desktop/x11/randr_displays.h"
#include "desktop/x11/window_facts.h"
#include "desktop/x11/window_manager.h"
#include "desktop/x11/x11_hot_keys.h"
#include "desktop/x11/x11_own_windows.h"
#include "desktop/x11/x11_windows.h"
#include "desktop/x11/x11_work_areas.h"
#include "desktop/x11/x11_workspace.h"
#include "desktop/x11/x_bell.h"
#include "desktop/x11/x_connection.h"
#include "desktop/x11/x_embed_tray.h"
#include "desktop/x11/x_screen_brightness.h"
#include "desktop/x11/xkb_keyboard_layout.h"
#include "desktop/x11/xkb_keymap.h"

#include <string>

namespace panewright {

/// The ports of an X session, on one connection.
class X11Desktop {
public:
    X11Desktop(ReachedServer& server, MainLoop& mainLoop, std::string ownBundleIdentifier);

private:
    XConnection connection_;
    WindowManager manager_;
    XkbKeymap keymap_;
    WindowFactsOfTurn facts_;
    ActiveWindows activeWindows_;

public:
    RandrDisplays displays;
    X11WorkAreas workAreas;

private:
    X11Windows windows_;

public:
    WindowsAccessibility accessibility;
    X11HotKeys hotKeys;
    EvdevNativeKeyCodes nativeKeyCodes;
    XkbKeyboardLayout keyboardLayout;
    X11Workspace workspace;
    DesktopEntryIcons icons;
    XEmbedTray tray;
    XScreenBrightness brightness;
    X11OwnWindows ownWindows;
    XBell beeper;

    /// Called once, when the X server has gone away.
    Registration onServerLost(std::function<void()> callback) {
        return connection_.onLost(std::move(callback));
    }

    /// Whether an EWMH window manager runs.
    bool hasWindowManager() { return manager_.isRunning(); }
};

} // namespace panewright
