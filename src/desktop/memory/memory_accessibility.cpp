#include "desktop/memory/memory_accessibility.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace panewright {

struct MemoryAccessibility::Element : AXUIElement {
    enum class Kind { kSystem, kApplication, kWindow };

    static AXUIElementRef make(Kind ofKind, std::int64_t withId) {
        auto element = std::make_shared<Element>();
        element->kind = ofKind;
        element->id = withId;
        return element;
    }

    static const Element* from(const AXUIElementRef& element) {
        return dynamic_cast<const Element*>(element.get());
    }

    bool is(Kind other) const { return kind == other; }
    ProcessId pid() const { return static_cast<ProcessId>(id); }
    MemoryWindowId window() const { return static_cast<MemoryWindowId>(id); }

    Kind kind = Kind::kSystem;
    /// The pid of an application or the id of a window.
    std::int64_t id = 0;
};

AXUIElementRef MemoryAccessibility::elementOf(MemoryWindowId window) {
    return Element::make(Element::Kind::kWindow, window);
}

std::optional<bool> MemoryAccessibility::isProcessTrustedWithOptions(bool prompt) {
    promptsShown_ += prompt && !trusted_ ? 1 : 0;
    return trusted_;
}

AXUIElementRef MemoryAccessibility::createSystemWide() {
    return Element::make(Element::Kind::kSystem, 0);
}

AXUIElementRef MemoryAccessibility::createApplication(ProcessId pid) {
    return Element::make(Element::Kind::kApplication, pid);
}

Result<AXValue, AXError> MemoryAccessibility::copyAttributeValue(const AXUIElementRef& element,
                                                                 std::string_view attribute) {
    const auto* named = Element::from(element);
    if (!named) {
        return AXError::kIllegalArgument;
    }
    if (!trusted_) {
        return AXError::kAPIDisabled;
    }
    switch (named->kind) {
    case Element::Kind::kApplication:
        return attributeOfApplication(named->pid(), attribute);
    case Element::Kind::kWindow:
        return attributeOfWindow(named->window(), attribute);
    case Element::Kind::kSystem:
        break;
    }
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilitySystemWideRole));
    }
    if (attribute != kAXFocusedApplicationAttribute) {
        return AXError::kAttributeUnsupported;
    }
    const auto& frontmost = windows_.frontmost();
    if (!frontmost) {
        return AXError::kNoValue;
    }
    return AXValue(createApplication(frontmost->processIdentifier));
}

Result<AXValue, AXError> MemoryAccessibility::attributeOfApplication(ProcessId pid,
                                                                     std::string_view attribute) {
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilityApplicationRole));
    }
    if (attribute != NSAccessibilityFocusedWindowAttribute) {
        return AXError::kAttributeUnsupported;
    }
    const auto window = windows_.focusedWindowOf(pid);
    if (!window) {
        return AXError::kNoValue;
    }
    return AXValue(elementOf(*window));
}

Result<AXValue, AXError> MemoryAccessibility::attributeOfWindow(MemoryWindowId window,
                                                                std::string_view attribute) {
    const auto* found = windows_.find(window);
    if (!found) {
        return AXError::kInvalidUIElement;
    }
    if (attribute == NSAccessibilityPositionAttribute) {
        return AXValue(found->frame.origin());
    }
    if (attribute == NSAccessibilitySizeAttribute) {
        return AXValue(found->frame.size());
    }
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilityWindowRole));
    }
    if (attribute == NSAccessibilityTitleAttribute) {
        return AXValue(found->title);
    }
    return AXError::kAttributeUnsupported;
}

AXError MemoryAccessibility::setAttributeValue(const AXUIElementRef& element,
                                               std::string_view attribute, const AXValue& value) {
    const auto* named = Element::from(element);
    if (!named) {
        return AXError::kIllegalArgument;
    }
    if (!trusted_) {
        return AXError::kAPIDisabled;
    }
    if (!named->is(Element::Kind::kWindow)) {
        return AXError::kAttributeUnsupported;
    }
    if (beforeWrite_) {
        beforeWrite_(named->window());
    }
    return write(named->window(), attribute, value);
}

AXError MemoryAccessibility::write(MemoryWindowId window, std::string_view attribute,
                                   const AXValue& value) {
    const auto* found = windows_.find(window);
    if (!found) {
        return AXError::kInvalidUIElement;
    }
    const auto* position = std::get_if<Point>(&value);
    const auto* size = std::get_if<Size>(&value);
    Rect frame = found->frame;
    if (attribute == NSAccessibilityPositionAttribute && position) {
        if (!std::isfinite(position->x) || !std::isfinite(position->y)) {
            return AXError::kIllegalArgument;
        }
        frame = makeRect(*position, frame.size());
    } else if (attribute == NSAccessibilitySizeAttribute && size) {
        if (!std::isfinite(size->width) || !std::isfinite(size->height)) {
            return AXError::kIllegalArgument;
        }
        frame = makeRect(frame.origin(), {std::max(1.0, size->width), std::max(1.0, size->height)});
    } else {
        return AXError::kAttributeUnsupported;
    }
    windows_.setFrame(window, frame);
    return AXError::kSuccess;
}

Result<bool, AXError> MemoryAccessibility::isAttributeSettable(const AXUIElementRef& element,
                                                               std::string_view attribute) {
    const auto* named = Element::from(element);
    if (!named) {
        return AXError::kIllegalArgument;
    }
    if (!named->is(Element::Kind::kWindow)) {
        return false;
    }
    const auto* window = windows_.find(named->window());
    if (!window) {
        return AXError::kInvalidUIElement;
    }
    const bool canMove = attribute == NSAccessibilityPositionAttribute && window->isMovable;
    const bool canResize = attribute == NSAccessibilitySizeAttribute && window->isResizable;
    return trusted_ && !window->isFullScreen && (canMove || canResize);
}

Accessibility::PidAnswer MemoryAccessibility::pid(const AXUIElementRef& element) {
    const auto* named = Element::from(element);
    if (!named) {
        return {AXError::kIllegalArgument, 0};
    }
    if (!named->is(Element::Kind::kWindow)) {
        return {AXError::kSuccess, named->pid()};
    }
    const auto* window = windows_.find(named->window());
    return window ? PidAnswer{AXError::kSuccess, window->pid}
                  : PidAnswer{AXError::kInvalidUIElement, 0};
}

Registration MemoryAccessibility::observe(ProcessId /*pid*/, const AXUIElementRef& element,
                                          std::string_view notification,
                                          std::function<void()> callback) {
    const auto* named = Element::from(element);
    if (!named || (named->is(Element::Kind::kWindow) && !windows_.find(named->window()))) {
        return {};
    }
    auto wanted = std::make_shared<std::function<void()>>(std::move(callback));
    auto registered = std::make_shared<Registration>(
        windows_.onNotification(named->id, notification, [this, wanted] {
            mainLoop_.post([wanted] {
                if (const auto stillWanted = *wanted) {
                    stillWanted();
                }
            });
        }));
    return Registration([wanted, registered] {
        *wanted = nullptr;
        registered->release();
    });
}

} // namespace panewright
