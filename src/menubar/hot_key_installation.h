#pragma once

#include "model/window_state.h"
#include "platform/key_event.h"
#include "platform/workspace.h"

#include <memory>
#include <optional>

namespace panewright {

class Model;

/// What may change which hot keys are installed.
enum class HotKeyOccasion {
    kStart,      // where a program is known then (StatusItemController)
    kActivation, // of another program
    kPermission, // that was missing
    kMenuOpened,
    kStateRemoved,
    kStatesRestored, // from the menu; the settings leave the hot keys
    kSettingsChanged,
    // Of the popovers for a state:
    kPopoverOpened,
    kPopoverFinished,  // by saving, cancelling or deleting
    kPopoverAbandoned, // by Escape, or the window manager
};

enum class HotKeyChange { kInstall, kRelease, kLeave };

/// What is to be done then. No hot key is installed when a popover opens, so that each can be
/// recorded. Another program that becomes active leaves that so only while the save popover is
/// shown, which then works for that program. After Escape the hot keys come back with the next
/// occasion.
HotKeyChange hotKeyChangeAt(HotKeyOccasion occasion, bool isSavePopoverShown);

/// Installs the hot keys that apply while the application is frontmost, in place of all that are
/// installed: those of the built-in states, the global ones and its own, of which the later win
/// where they collide, and the one that moves the window to the next display (null for none), which
/// wins over all. Without an application its own states are none.
void installHotKeys(const Model& model, const std::optional<RunningApplication>& frontmost,
                    const std::shared_ptr<CarbonKeyEvent>& moveToNextDisplay);

/// The installed hot key of that key and those modifiers, lock keys aside; null if there is none.
std::shared_ptr<CarbonKeyEvent> installedHotKey(const KeyEvent& key);

/// Lets all of them go.
void releaseHotKeys();

} // namespace panewright
