#pragma once

#include "menubar/focus_tracking.h"
#include "platform/beeper.h"
#include "services/tracking.h"
#include "shortcuts/shortcut_text.h"

#include <memory>
#include <optional>

namespace panewright {

class Model;
class WindowState;

/// Puts the tracked window into a state, or onto the next display. What cannot be done is answered
/// with a beep.
class ActiveWindowPlacer {
public:
    /// All of it must outlive the placer.
    struct Services {
        Accessibility& accessibility;
        const Displays& displays;
        Workspace& workspace;
        const ProgramInformation& program;
        Beeper& beeper;
        Tracking tracking;
        ShortcutText shortcutText;
    };

    ActiveWindowPlacer(const Services& services, FocusTracking& tracking)
        : services_(services), tracking_(tracking) {}

    /// Applies the state to the frontmost application's focused window; a null one only beeps.
    /// Without permission to control other programs shows the request for it and does nothing else.
    void applyWindowState(const std::shared_ptr<WindowState>& state, Model& model);

    /// Moves the tracked window to the next display, keeping its place and share of the display.
    /// False when it cannot be moved.
    bool moveToNextDisplay();

private:
    std::optional<QuartzDisplay> displayFor(const std::shared_ptr<WindowState>& state,
                                            Model& model) const;

    Services services_;
    FocusTracking& tracking_;
};

} // namespace panewright
