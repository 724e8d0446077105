#include "menubar/focus_tracking.h"

#include "accessibility/accessibility_observer.h"
#include "geometry/frame_attributes.h"
#include "services/workspace_additions.h"

#include <utility>

namespace panewright {
namespace {

void removeObservers(const std::shared_ptr<AccessibilityElement>& element) {
    if (element) {
        element->removeAllObservers();
    }
}

} // namespace

std::shared_ptr<FocusTracking> FocusTracking::create(const Ports& ports) {
    return std::shared_ptr<FocusTracking>(new FocusTracking(ports));
}

FocusTracking::FocusTracking(const Ports& ports)
    : ports_(ports), helper_(ports.accessibility),
      displayChanges_(ports.displays.onChange([this] { updateWindowRectAndDisplay(); })) {}

bool FocusTracking::updateApplicationTracking() {
    if (isFrontmostAppThisApp(ports_.workspace, ports_.program)) {
        return false;
    }
    if (updateCurrentApplication()) {
        updateApplicationTrackingElements();
    }
    return true;
}

void FocusTracking::updateApplicationTrackingElements() {
    removeObservers(windowElement_);
    removeObservers(appElement_);
    if (!updateApplicationElement() || !updateWindowElement()) {
        return;
    }
    updateWindowRectAndDisplay();
    installObservers();
}

std::optional<RunningApplication> FocusTracking::updateCurrentApplication() {
    auto frontmost = ports_.workspace.frontmostApplication();
    if (frontmost) {
        currentApplication_ = frontmost;
    }
    return frontmost;
}

std::shared_ptr<AccessibilityElement> FocusTracking::updateApplicationElement() {
    appElement_ = currentApplication_
                      ? helper_.applicationElementFromPid(currentApplication_->processIdentifier)
                      : nullptr;
    return appElement_;
}

std::shared_ptr<AccessibilityElement> FocusTracking::updateWindowElement() {
    windowElement_ =
        appElement_->accessibilityElementForAttribute(NSAccessibilityFocusedWindowAttribute);
    return windowElement_;
}

void FocusTracking::updateWindowRect() {
    const auto frame = windowElement_ ? readFrame(*windowElement_) : std::nullopt;
    if (frame) {
        windowRect_ = *frame;
    }
}

void FocusTracking::updateWindowRectAndDisplay() {
    updateWindowRect();
    updateCurrentDisplay();
}

void FocusTracking::updateCurrentDisplay() {
    currentDisplay_ = QuartzDisplay::withRect(ports_.displays, windowRect_);
}

void FocusTracking::installObservers() {
    observe(*appElement_, NSAccessibilityMainWindowChangedNotification,
            &FocusTracking::mainWindowChanged);
    observe(*windowElement_, NSAccessibilityWindowResizedNotification,
            &FocusTracking::windowFrameChanged);
    observe(*windowElement_, NSAccessibilityWindowMovedNotification,
            &FocusTracking::windowFrameChanged);
}

void FocusTracking::observe(AccessibilityElement& element, std::string_view notification,
                            void (FocusTracking::*callback)()) {
    element.addObserver(AccessibilityObserver::observerForNotification(
        notification, [weak = weak_from_this(), callback](auto&, const auto&, const auto&) {
            if (const auto self = weak.lock()) {
                (*self.*callback)();
            }
        }));
}

void FocusTracking::mainWindowChanged() {
    updateApplicationTracking();
    if (windowChanged_) {
        windowChanged_();
    }
}

void FocusTracking::windowFrameChanged() {
    updateWindowRectAndDisplay();
    if (windowChanged_) {
        windowChanged_();
    }
}

} // namespace panewright
