#pragma once

#include "base/geometry.h"
#include "base/registration.h"
#include "base/result.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace panewright {

/// Process id of an application. A client that is no process of this machine has a negative one of
/// its own.
using ProcessId = std::int32_t;

/// Status of an accessibility call; the numbers are the interface's own.
enum class AXError : std::int32_t {
    kSuccess = 0,
    kFailure = -25200,
    kIllegalArgument = -25201,
    kInvalidUIElement = -25202,
    kInvalidUIElementObserver = -25203,
    kCannotComplete = -25204,
    kAttributeUnsupported = -25205,
    kActionUnsupported = -25206,
    kNotificationUnsupported = -25207,
    kNotImplemented = -25208,
    kNotificationAlreadyRegistered = -25209,
    kNotificationNotRegistered = -25210,
    kAPIDisabled = -25211,
    kNoValue = -25212,
};

/// A UI element: the system, an application or a window. Only the adapter that made it looks
/// inside; copies of the pointer are counted references to one element.
class AXUIElement {
public:
    virtual ~AXUIElement() = default;
};
using AXUIElementRef = std::shared_ptr<const AXUIElement>;

/// What an attribute holds. `bool` and `double` stand for values that no wrapper carries further.
using AXValue = std::variant<Point, Size, Rect, Range, std::string, AXUIElementRef, bool, double>;

// Attributes.
constexpr std::string_view NSAccessibilityPositionAttribute = "AXPosition";
constexpr std::string_view NSAccessibilitySizeAttribute = "AXSize";
constexpr std::string_view NSAccessibilityRoleAttribute = "AXRole";
constexpr std::string_view NSAccessibilityTitleAttribute = "AXTitle";
constexpr std::string_view NSAccessibilityFocusedWindowAttribute = "AXFocusedWindow";
constexpr std::string_view kFocusedApplicationAttribute = "AXFocusedApplication";

// Roles.
constexpr std::string_view NSAccessibilityWindowRole = "AXWindow";
constexpr std::string_view NSAccessibilityApplicationRole = "AXApplication";
constexpr std::string_view NSAccessibilitySystemWideRole = "AXSystemWide";

// Notifications.
constexpr std::string_view NSAccessibilityMainWindowChangedNotification = "AXMainWindowChanged";
constexpr std::string_view NSAccessibilityWindowMovedNotification = "AXWindowMoved";
constexpr std::string_view NSAccessibilityWindowResizedNotification = "AXWindowResized";

/// Reading and moving the windows of other programs.
///
/// Positions and sizes are those of a window's outer frame, title bar included, in global points:
/// origin at the top left of the main display, y downwards. Main thread only; callbacks come on the
/// main loop, between events. A window that is gone is an ordinary answer (kInvalidUIElement),
/// never a failure of the program. Passing a null element answers kIllegalArgument.
class Accessibility {
public:
    struct PidAnswer {
        AXError status = AXError::kSuccess;
        ProcessId pid = 0;
    };

    virtual ~Accessibility() = default;

    /// Whether this program may control others.
    virtual bool isProcessTrusted() const = 0;

    /// The same, showing the system's request for permission when `prompt` is set and permission is
    /// missing. Empty where the system has no such check.
    virtual std::optional<bool> isProcessTrustedWithOptions(bool prompt) = 0;

    /// Calls back after this program came to be trusted that was not before, as a user may take
    /// long to allow it. Empty where permission is there from the start, or never comes.
    virtual Registration onTrusted(std::function<void()> callback) = 0;

    /// Never null, also for a process that does not exist.
    virtual AXUIElementRef createSystemWide() = 0;
    virtual AXUIElementRef createApplication(ProcessId pid) = 0;

    /// kNoValue when the attribute holds nothing now (an application without windows),
    /// kAttributeUnsupported when the element never has it.
    virtual Result<AXValue, AXError> copyAttributeValue(const AXUIElementRef& element,
                                                        std::string_view attribute) = 0;

    /// Success means the request was taken: the owner of the window may limit it or take its time.
    /// A position or size that is not finite, or out of the window system's range, is dropped
    /// (kIllegalArgument); a width or height below 1 is written as 1. Writes to one window keep
    /// their order.
    ///
    /// Reading afterwards gives what was written, a position rounded up to whole points, as long as
    /// the window stands where that has put it and no edge is more than 64 points from what was
    /// asked for: windows snap to pixels, cells and panels, while frames are compared exactly. So
    /// does a frame that covers a display and was fitted into what panels leave of it. Else it
    /// gives the true frame. While the writes have not settled, reading waits for them, half a
    /// second at most, or gives what was written. (A platform whose own interface this is answers
    /// as that does.)
    virtual AXError setAttributeValue(const AXUIElementRef& element, std::string_view attribute,
                                      const AXValue& value) = 0;

    /// What the window itself would allow; a window filling its display as "full screen" allows
    /// nothing.
    virtual Result<bool, AXError> isAttributeSettable(const AXUIElementRef& element,
                                                      std::string_view attribute) = 0;

    /// The pid is meaningful with status kSuccess.
    virtual PidAnswer pid(const AXUIElementRef& element) = 0;

    /// Calls back each time the element, a process's `pid`, sends the notification, until the
    /// registration is released. Empty when the element or notification cannot be observed. Moved
    /// and resized are sent only when the outer frame differs from the last one reported.
    virtual Registration observe(ProcessId pid, const AXUIElementRef& element,
                                 std::string_view notification, std::function<void()> callback) = 0;
};

} // namespace panewright
