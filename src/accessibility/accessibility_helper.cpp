#include "accessibility/accessibility_helper.h"

#include "base/log.h"

#include <string>

namespace panewright {
namespace {

/// Empty for a status that is not logged.
std::string_view nameOf(AXError code) {
    switch (code) {
    case AXError::kSuccess:
        return "kAXErrorSuccess";
    case AXError::kNoValue:
        return "kAXErrorNoValue";
    case AXError::kNotImplemented:
        return "kAXErrorNotImplemented";
    case AXError::kAttributeUnsupported:
        return "kAXErrorAttributeUnsupported";
    case AXError::kCannotComplete:
        return "kAXErrorCannotComplete";
    case AXError::kInvalidUIElement:
        return "kAXErrorInvalidUIElement";
    case AXError::kIllegalArgument:
        return "kAXErrorIllegalArgument";
    default:
        return "";
    }
}

} // namespace

void AccessibilityHelper::logResultCode(AXError code, std::string_view withMessage) {
    if (const auto name = nameOf(code); !name.empty()) {
        logLine(std::string(withMessage).append(": ").append(name));
    }
}

bool AccessibilityHelper::accessibilityEnabled() const {
    return port_.isProcessTrusted();
}

bool AccessibilityHelper::accessibilityEnabledWithPrompt() const {
    const auto trusted = port_.isProcessTrustedWithOptions(true);
    return trusted ? *trusted : port_.isProcessTrusted();
}

std::shared_ptr<AccessibilityElement> AccessibilityHelper::systemElement() const {
    return AccessibilityElement::elementWithAXUIElementRef(port_, port_.createSystemWide());
}

std::shared_ptr<AccessibilityElement> AccessibilityHelper::applicationFromSystemElement() const {
    return elementOrLog(*systemElement(), kFocusedApplicationAttribute,
                        "can't copy attribute kAXFocusedApplicationAttribute");
}

std::shared_ptr<AccessibilityElement>
AccessibilityHelper::applicationElementFromPid(ProcessId pid) const {
    return AccessibilityElement::elementWithAXUIElementRef(port_, port_.createApplication(pid));
}

std::shared_ptr<AccessibilityElement>
AccessibilityHelper::focusedWindowForApplicationFromSystemElement() const {
    const auto application = applicationFromSystemElement();
    return application ? elementOrLog(*application, NSAccessibilityFocusedWindowAttribute,
                                      "can't copy attribute NSAccessibilityFocusedWindowAttribute")
                       : nullptr;
}

std::shared_ptr<AccessibilityElement>
AccessibilityHelper::focusedWindowForApplicationElementFromPid(ProcessId pid) const {
    return applicationElementFromPid(pid)->accessibilityElementForAttribute(
        NSAccessibilityFocusedWindowAttribute);
}

std::shared_ptr<AccessibilityElement>
AccessibilityHelper::elementOrLog(const AccessibilityElement& owner, std::string_view attribute,
                                  std::string_view message) {
    const auto copied = owner.copyElementForAttribute(attribute);
    if (!copied) {
        logResultCode(copied.error(), message);
        return nullptr;
    }
    return copied.value();
}

} // namespace panewright
