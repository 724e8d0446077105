#pragma once

#include "accessibility/accessibility_element.h"

#include <memory>
#include <string_view>

namespace panewright {

/// Permission, and the elements from which all others are reached.
class AccessibilityHelper {
public:
    explicit AccessibilityHelper(Accessibility& port) : port_(port) {}

    /// Logs the message with the name of the status. Only the statuses that a look-up can meet have
    /// a name here; any other logs nothing.
    static void logResultCode(AXError code, std::string_view withMessage);

    /// Whether this program may control others.
    bool accessibilityEnabled() const;

    /// The same; the system shows its request for permission when it is missing.
    bool accessibilityEnabledWithPrompt() const;

    std::shared_ptr<AccessibilityElement> systemElement() const;

    /// The frontmost application; null when there is none, which is logged.
    std::shared_ptr<AccessibilityElement> applicationFromSystemElement() const;

    /// Never null, also for a process that does not exist.
    std::shared_ptr<AccessibilityElement> applicationElementFromPid(ProcessId pid) const;

    /// The frontmost application's focused window; null when there is none, which is logged.
    std::shared_ptr<AccessibilityElement> focusedWindowForApplicationFromSystemElement() const;

    /// Null when there is none. Who has the application's element asks that (FocusTracking).
    std::shared_ptr<AccessibilityElement>
    focusedWindowForApplicationElementFromPid(ProcessId pid) const;

private:
    static std::shared_ptr<AccessibilityElement> elementOrLog(const AccessibilityElement& owner,
                                                              std::string_view attribute,
                                                              std::string_view message);

    Accessibility& port_;
};

} // namespace panewright
