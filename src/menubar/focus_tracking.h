#pragma once

#include "accessibility/accessibility_element.h"
#include "accessibility/accessibility_helper.h"
#include "base/geometry.h"
#include "geometry/quartz_display.h"
#include "platform/program_information.h"
#include "platform/workspace.h"

#include <functional>
#include <memory>
#include <optional>

namespace panewright {

/// Which application is frontmost, which of its windows has the focus, and that window's outer
/// frame and display, in global points (origin top-left of the main display, y downwards).
///
/// What cannot be found leaves the rest as it was: without a focused window, or while its frame is
/// not known, windowRect() and currentDisplay() are those of the last one.
class FocusTracking : public std::enable_shared_from_this<FocusTracking> {
public:
    /// All of it must outlive the tracking.
    struct Ports {
        Accessibility& accessibility;
        Displays& displays;
        const Workspace& workspace;
        const ProgramInformation& program;
    };

    static std::shared_ptr<FocusTracking> create(const Ports& ports);

    /// Called after the tracked window moved, was resized or gave way to another one. Displays that
    /// change are followed without a call.
    void setWindowChangedHandler(std::function<void()> handler) {
        windowChanged_ = std::move(handler);
    }

    /// Nil before any application was known.
    const std::optional<RunningApplication>& currentApplication() const {
        return currentApplication_;
    }
    void setCurrentApplication(std::optional<RunningApplication> application) {
        currentApplication_ = std::move(application);
    }
    /// Null without one.
    const std::shared_ptr<AccessibilityElement>& appElement() const { return appElement_; }
    const std::shared_ptr<AccessibilityElement>& windowElement() const { return windowElement_; }
    const Rect& windowRect() const { return windowRect_; }
    const std::optional<QuartzDisplay>& currentDisplay() const { return currentDisplay_; }
    /// Its bounds as they are now; zeros without a display.
    Rect currentDisplayBounds() const { return boundsOf(currentDisplay_); }

    /// Takes the frontmost application and its focused window. While this program is frontmost, or
    /// none is, everything stays; false for this program.
    bool updateApplicationTracking();

    /// The same for currentApplication() as it is.
    void updateApplicationTrackingElements();

private:
    explicit FocusTracking(const Ports& ports);

    std::optional<RunningApplication> updateCurrentApplication();
    std::shared_ptr<AccessibilityElement> updateApplicationElement();
    std::shared_ptr<AccessibilityElement> updateWindowElement();
    void updateWindowRectAndDisplay();
    void updateWindowRect();
    void updateCurrentDisplay();
    void installObservers();
    void observe(AccessibilityElement& element, std::string_view notification,
                 void (FocusTracking::*callback)());
    void mainWindowChanged();
    void windowFrameChanged();

    Ports ports_;
    AccessibilityHelper helper_;
    Registration displayChanges_;
    std::function<void()> windowChanged_;
    std::optional<RunningApplication> currentApplication_;
    std::shared_ptr<AccessibilityElement> appElement_;
    std::shared_ptr<AccessibilityElement> windowElement_;
    Rect windowRect_;
    std::optional<QuartzDisplay> currentDisplay_;
};

} // namespace panewright
