#include "desktop/x11/x11_accessibility.h"

#include "desktop/x11/window_hints.h"
#include "desktop/x11/x_properties.h"

namespace panewright {

struct X11Accessibility::Element : AXUIElement {
    enum class Kind { kSystem, kApplication, kWindow };

    static AXUIElementRef make(Kind ofKind, ProcessId ofPid, xcb_window_t ofWindow) {
        auto element = std::make_shared<Element>();
        element->kind = ofKind;
        element->pid = ofPid;
        element->window = ofWindow;
        return element;
    }

    static const Element* from(const AXUIElementRef& element) {
        return dynamic_cast<const Element*>(element.get());
    }

    Kind kind = Kind::kSystem;
    ProcessId pid = 0;
    xcb_window_t window = kNoWindow;
};

X11Accessibility::X11Accessibility(XConnection& connection, WindowManager& manager,
                                   ActiveWindows& activeWindows, const X11WorkAreas& workAreas,
                                   MainLoop& mainLoop)
    : connection_(connection), activeWindows_(activeWindows),
      writer_(connection, manager, workAreas, mainLoop), frames_(connection, writer_, mainLoop),
      framesOfTurn_(mainLoop), traitsOfTurn_(mainLoop) {}

void X11Accessibility::settle() {
    forgetTurn();
    if (writer_.settleAll()) {
        frames_.checkAll();
    } else {
        frames_.checkChanged();
    }
    forgetTurn();
}

AXUIElementRef X11Accessibility::createSystemWide() {
    return Element::make(Element::Kind::kSystem, 0, kNoWindow);
}

AXUIElementRef X11Accessibility::createApplication(ProcessId pid) {
    return Element::make(Element::Kind::kApplication, pid, kNoWindow);
}

Result<AXValue, AXError> X11Accessibility::copyAttributeValue(const AXUIElementRef& element,
                                                              std::string_view attribute) {
    const auto* named = Element::from(element);
    if (!named) {
        return AXError::kIllegalArgument;
    }
    switch (named->kind) {
    case Element::Kind::kSystem:
        return attributeOfSystem(attribute);
    case Element::Kind::kApplication:
        return attributeOfApplication(named->pid, attribute);
    case Element::Kind::kWindow:
        return attributeOfWindow(named->window, attribute);
    }
    return AXError::kIllegalArgument;
}

Result<AXValue, AXError> X11Accessibility::attributeOfSystem(std::string_view attribute) {
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilitySystemWideRole));
    }
    if (attribute != kAXFocusedApplicationAttribute) {
        return AXError::kAttributeUnsupported;
    }
    const auto& frontmost = activeWindows_.frontmost();
    if (!frontmost) {
        return AXError::kNoValue;
    }
    return AXValue(createApplication(frontmost->processIdentifier));
}

Result<AXValue, AXError> X11Accessibility::attributeOfApplication(ProcessId pid,
                                                                  std::string_view attribute) {
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilityApplicationRole));
    }
    if (attribute != NSAccessibilityFocusedWindowAttribute) {
        return AXError::kAttributeUnsupported;
    }
    const auto window = activeWindows_.focusedWindowOf(pid);
    if (!window) {
        return AXError::kNoValue;
    }
    return AXValue(Element::make(Element::Kind::kWindow, pid, *window));
}

Result<AXValue, AXError> X11Accessibility::attributeOfWindow(xcb_window_t window,
                                                             std::string_view attribute) {
    const bool isPosition = attribute == NSAccessibilityPositionAttribute;
    if (isPosition || attribute == NSAccessibilitySizeAttribute) {
        const auto frame = frameOf(window);
        if (!frame) {
            return AXError::kInvalidUIElement;
        }
        return isPosition ? AXValue(frame->origin()) : AXValue(frame->size());
    }
    if (attribute == NSAccessibilityRoleAttribute) {
        return AXValue(std::string(NSAccessibilityWindowRole));
    }
    if (attribute != NSAccessibilityTitleAttribute) {
        return AXError::kAttributeUnsupported;
    }
    if (!frameOf(window)) {
        return AXError::kInvalidUIElement;
    }
    auto title = titleOf(window);
    if (!title) {
        return AXError::kNoValue;
    }
    return AXValue(std::move(*title));
}

std::optional<std::string> X11Accessibility::titleOf(xcb_window_t window) {
    XPropertyRequest modern(connection_, window, connection_.atoms()._NET_WM_NAME);
    XPropertyRequest plain(connection_, window, XCB_ATOM_WM_NAME);
    auto title = modern.text();
    return title ? title : plain.text();
}

std::optional<Rect> X11Accessibility::frameOf(xcb_window_t window) {
    return framesOfTurn_.valueOf(window, [&] { return writer_.settledFrame(window); });
}

void X11Accessibility::forgetTurn() {
    framesOfTurn_.forget();
    traitsOfTurn_.forget();
}

AXError X11Accessibility::setAttributeValue(const AXUIElementRef& element,
                                            std::string_view attribute, const AXValue& value) {
    const auto* named = Element::from(element);
    if (!named) {
        return AXError::kIllegalArgument;
    }
    if (named->kind != Element::Kind::kWindow) {
        return AXError::kAttributeUnsupported;
    }
    forgetTurn();
    const auto* position = std::get_if<Point>(&value);
    const auto* size = std::get_if<Size>(&value);
    bool written = false;
    if (attribute == NSAccessibilityPositionAttribute && position) {
        written = writer_.writePosition(named->window, *position);
    } else if (attribute == NSAccessibilitySizeAttribute && size) {
        written = writer_.writeSize(named->window, *size);
    } else {
        return AXError::kAttributeUnsupported;
    }
    return written ? AXError::kSuccess : AXError::kIllegalArgument;
}

Result<bool, AXError> X11Accessibility::isAttributeSettable(const AXUIElementRef& element,
                                                            std::string_view attribute) {
    const auto* named = Element::from(element);
    if (!named) {
        return AXError::kIllegalArgument;
    }
    const bool isSize = attribute == NSAccessibilitySizeAttribute;
    if (named->kind != Element::Kind::kWindow ||
        (!isSize && attribute != NSAccessibilityPositionAttribute)) {
        return false;
    }
    if (!frameOf(named->window)) {
        return AXError::kInvalidUIElement;
    }
    const auto [hints, states, allowed] = traitsOfTurn_.valueOf(
        named->window, [&] { return readTraits(connection_, named->window); });
    if (states.fullScreen) {
        return false;
    }
    if (isSize && (hints.fixedWidth || hints.fixedHeight)) {
        return false;
    }
    if (states.blocksPlacing()) {
        return true; // what is forbidden in that state says nothing of the window
    }
    return isSize ? allowed.resize : allowed.move;
}

Accessibility::PidAnswer X11Accessibility::pid(const AXUIElementRef& element) {
    const auto* named = Element::from(element);
    if (!named) {
        return {AXError::kIllegalArgument, 0};
    }
    if (named->kind == Element::Kind::kWindow && !frameOf(named->window)) {
        return {AXError::kInvalidUIElement, 0};
    }
    return {AXError::kSuccess, named->pid};
}

Registration X11Accessibility::observe(ProcessId /*pid*/, const AXUIElementRef& element,
                                       std::string_view notification,
                                       std::function<void()> callback) {
    const auto* named = Element::from(element);
    if (!named) {
        return {};
    }
    if (named->kind == Element::Kind::kApplication &&
        notification == NSAccessibilityMainWindowChangedNotification) {
        return activeWindows_.onWindowChange(
            [pid = named->pid, callback = std::move(callback)](ProcessId changed) {
                if (changed == pid) {
                    callback();
                }
            });
    }
    if (named->kind != Element::Kind::kWindow) {
        return {};
    }
    if (notification == NSAccessibilityWindowMovedNotification) {
        return frames_.onMoved(named->window, std::move(callback));
    }
    if (notification == NSAccessibilityWindowResizedNotification) {
        return frames_.onResized(named->window, std::move(callback));
    }
    return {};
}

} // namespace panewright
