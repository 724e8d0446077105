#include "menubar/active_window_placer.h"

#include "geometry/frame_attributes.h"
#include "geometry/full_screen.h"
#include "geometry/next_display.h"
#include "geometry/window_placement.h"
#include "model/model.h"
#include "services/workspace_additions.h"

namespace panewright {

void ActiveWindowPlacer::applyWindowState(const std::shared_ptr<WindowState>& state, Model& model) {
    if (!AccessibilityHelper(services_.accessibility).accessibilityEnabledWithPrompt()) {
        bringApplicationToFrontIfInBackground(services_.workspace, services_.program);
        return;
    }
    tracking_.updateApplicationTracking();
    const auto display = displayFor(state, model);
    if (!state ||
        !applyToWindowElement(*state, tracking_.windowElement(), display, services_.displays)) {
        services_.beeper.beep();
    }
    services_.tracking.trackEvent(kApplyWindowStateEvent,
                                  state ? state->attributesForTracking(services_.shortcutText)
                                        : EventAttributes{});
}

/// The display that the window is on; the next one when the window is in the state already, or
/// fills its display and would again, and the user lets states move windows on.
std::optional<QuartzDisplay>
ActiveWindowPlacer::displayFor(const std::shared_ptr<WindowState>& state, Model& model) const {
    const Rect& window = tracking_.windowRect();
    const auto display = QuartzDisplay::withRect(services_.displays, window);
    const auto next = getNextDisplayForWindowRect(services_.displays, window);
    // The setting is asked last: its file is looked at each time.
    if (!next || !model.allowWindowStateShortcutsToMoveWindowNextDisplay()) {
        return display;
    }
    const Rect target =
        state ? getSizePositionForWindowElement(*state, tracking_.windowElement(), display)
              : Rect{};
    const bool isInEffect = target == window;
    const bool isFullAgain = isRectFullscreen(window, display) && isRectFullscreen(target, display);
    return isInEffect || isFullAgain ? next : display;
}

bool ActiveWindowPlacer::moveToNextDisplay() {
    const auto& window = tracking_.windowElement();
    const auto next = getNextDisplayForWindowRect(services_.displays, tracking_.windowRect());
    if (!next || !isFrameSettable(window, kSizeThenPosition)) {
        services_.beeper.beep();
        return false;
    }
    writeFrame(*window,
               frameOnNextDisplay(tracking_.windowRect(), tracking_.currentDisplay(), *next));
    services_.tracking.trackEvent(kMoveToNextDisplayEvent);
    return true;
}

} // namespace panewright
