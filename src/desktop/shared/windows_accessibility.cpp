#include "desktop/shared/windows_accessibility.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace panewright {
namespace {

AXError errorFor(NoAnswer reason, AXError ifNone) {
    return reason == NoAnswer::kNone ? ifNone : AXError::kCannotComplete;
}

} // namespace

struct WindowsAccessibility::Element : AXUIElement {
    enum class Kind { kSystem, kApplication, kWindow };

    static AXUIElementRef make(Kind ofKind, ProcessId ofPid, WindowId ofWindow) {
        auto element = std::make_shared<Element>();
        element->kind = ofKind;
        element->pid = ofPid;
        element->window = ofWindow;
        return element;
    }

    static const Element* from(const AXUIElementRef& element) {
        return dynamic_cast<const Element*>(element.get());
    }

    bool isWindow() const { return kind == Kind::kWindow; }

    Kind kind = Kind::kSystem;
    ProcessId pid = 0;
    WindowId window = 0;
};

AXUIElementRef WindowsAccessibility::elementOf(ProcessId pid, WindowId window) {
    return Element::make(Element::Kind::kWindow, pid, window);
}

std::optional<bool> WindowsAccessibility::isProcessTrustedWithOptions(bool prompt) {
    if (prompt && !windows_.isPermitted()) {
        windows_.askForPermission();
    }
    return windows_.isPermitted();
}

AXUIElementRef WindowsAccessibility::createSystemWide() {
    return Element::make(Element::Kind::kSystem, 0, 0);
}

AXUIElementRef WindowsAccessibility::createApplication(ProcessId pid) {
    return Element::make(Element::Kind::kApplication, pid, 0);
}

Result<const WindowsAccessibility::Element*, AXError>
WindowsAccessibility::asked(const AXUIElementRef& element) const {
    const auto* named = Element::from(element);
    if (!named) {
        return AXError::kIllegalArgument;
    }
    return windows_.isPermitted() ? Result<const Element*, AXError>(named) : AXError::kAPIDisabled;
}

Result<AXValue, AXError> WindowsAccessibility::copyAttributeValue(const AXUIElementRef& element,
                                                                  std::string_view attribute) {
    const auto named = asked(element);
    if (!named) {
        return named.error();
    }
    switch (named.value()->kind) {
    case Element::Kind::kSystem:
        return attributeOfSystem(attribute);
    case Element::Kind::kApplication:
        return attributeOfApplication(named.value()->pid, attribute);
    case Element::Kind::kWindow:
        break;
    }
    return attributeOfWindow(named.value()->window, attribute);
}

Result<AXValue, AXError> WindowsAccessibility::attributeOfSystem(std::string_view attribute) {
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilitySystemWideRole));
    }
    if (attribute != kFocusedApplicationAttribute) {
        return AXError::kAttributeUnsupported;
    }
    const auto pid = windows_.frontmostProcess();
    if (!pid) {
        return errorFor(pid.error(), AXError::kNoValue);
    }
    return AXValue(createApplication(pid.value()));
}

Result<AXValue, AXError> WindowsAccessibility::attributeOfApplication(ProcessId pid,
                                                                      std::string_view attribute) {
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilityApplicationRole));
    }
    if (attribute != NSAccessibilityFocusedWindowAttribute) {
        return AXError::kAttributeUnsupported;
    }
    const auto window = windows_.focusedWindowOf(pid);
    if (!window) {
        return errorFor(window.error(), AXError::kNoValue);
    }
    if (const auto frame = windows_.frameOf(window.value());
        !frame && frame.error() == NoAnswer::kNotKnown) {
        return AXError::kCannotComplete;
    }
    return AXValue(elementOf(pid, window.value()));
}

Result<AXValue, AXError> WindowsAccessibility::attributeOfWindow(WindowId window,
                                                                 std::string_view attribute) {
    const auto frame = windows_.frameOf(window);
    if (!frame && frame.error() == NoAnswer::kNone) {
        return AXError::kInvalidUIElement;
    }
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilityWindowRole));
    }
    if (attribute == NSAccessibilityTitleAttribute) {
        auto title = windows_.titleOf(window);
        return title ? Result<AXValue, AXError>(AXValue(std::move(title).value()))
                     : errorFor(title.error(), AXError::kNoValue);
    }
    const bool isPosition = attribute == NSAccessibilityPositionAttribute;
    if (!isPosition && attribute != NSAccessibilitySizeAttribute) {
        return AXError::kAttributeUnsupported;
    }
    if (!frame) {
        return AXError::kCannotComplete;
    }
    return isPosition ? AXValue(frame.value().origin()) : AXValue(frame.value().size());
}

AXError WindowsAccessibility::setAttributeValue(const AXUIElementRef& element,
                                                std::string_view attribute, const AXValue& value) {
    const auto named = asked(element);
    if (!named) {
        return named.error();
    }
    return named.value()->isWindow() ? write(named.value()->window, attribute, value)
                                     : AXError::kAttributeUnsupported;
}

AXError WindowsAccessibility::write(WindowId window, std::string_view attribute,
                                    const AXValue& value) {
    const auto* position = std::get_if<Point>(&value);
    const auto* size = std::get_if<Size>(&value);
    bool isWritten = false;
    if (attribute == NSAccessibilityPositionAttribute && position) {
        isWritten = std::isfinite(position->x) && std::isfinite(position->y) &&
                    windows_.writePosition(window, *position);
    } else if (attribute == NSAccessibilitySizeAttribute && size) {
        isWritten =
            std::isfinite(size->width) && std::isfinite(size->height) &&
            windows_.writeSize(window, {std::max(1.0, size->width), std::max(1.0, size->height)});
    } else {
        return AXError::kAttributeUnsupported;
    }
    return isWritten ? AXError::kSuccess : AXError::kIllegalArgument;
}

Result<bool, AXError> WindowsAccessibility::isAttributeSettable(const AXUIElementRef& element,
                                                                std::string_view attribute) {
    const auto named = asked(element);
    if (!named) {
        return named.error();
    }
    const bool isSize = attribute == NSAccessibilitySizeAttribute;
    if (!named.value()->isWindow() || (!isSize && attribute != NSAccessibilityPositionAttribute)) {
        return false;
    }
    const auto abilities = windows_.abilitiesOf(named.value()->window);
    if (!abilities) {
        return errorFor(abilities.error(), AXError::kInvalidUIElement);
    }
    const auto [isMovable, isResizable, isFullScreen] = abilities.value();
    return !isFullScreen && (isSize ? isResizable : isMovable);
}

Accessibility::PidAnswer WindowsAccessibility::pid(const AXUIElementRef& element) {
    const auto* named = Element::from(element);
    if (!named) {
        return {AXError::kIllegalArgument, 0};
    }
    if (named->isWindow()) {
        const auto frame = windows_.frameOf(named->window);
        if (!frame && frame.error() == NoAnswer::kNone) {
            return {AXError::kInvalidUIElement, 0};
        }
    }
    return {AXError::kSuccess, named->pid};
}

Registration WindowsAccessibility::observe(ProcessId /*pid*/, const AXUIElementRef& element,
                                           std::string_view notification,
                                           std::function<void()> callback) {
    const auto* named = Element::from(element);
    if (!named) {
        return {};
    }
    if (named->kind == Element::Kind::kApplication &&
        notification == NSAccessibilityMainWindowChangedNotification) {
        return windows_.onFocusChange(named->pid, std::move(callback));
    }
    if (named->isWindow() && notification == NSAccessibilityWindowMovedNotification) {
        return windows_.onMoved(named->window, std::move(callback));
    }
    if (named->isWindow() && notification == NSAccessibilityWindowResizedNotification) {
        return windows_.onResized(named->window, std::move(callback));
    }
    return {};
}

} // namespace panewright
