#include "accessibility/accessibility_element.h"

#include "accessibility/accessibility_observer.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace panewright {

std::shared_ptr<AccessibilityElement>
AccessibilityElement::elementWithAXUIElementRef(Accessibility& port, AXUIElementRef element) {
    return std::shared_ptr<AccessibilityElement>(
        new AccessibilityElement(port, std::move(element)));
}

AccessibilityElement::AccessibilityElement(Accessibility& port, AXUIElementRef element)
    : port_(port), element_(std::move(element)) {}

AccessibilityElement::~AccessibilityElement() {
    removeAllObservers();
}

ProcessId AccessibilityElement::pid() const {
    const auto answer = port_.pid(element_);
    // With the lowest bit set both become kIllegalArgument, as the statuses are one apart.
    static_assert((static_cast<int>(AXError::kInvalidUIElement) | 1) ==
                  static_cast<int>(AXError::kIllegalArgument));
    if ((static_cast<int>(answer.status) | 1) == static_cast<int>(AXError::kIllegalArgument)) {
        return -1;
    }
    return answer.pid;
}

bool AccessibilityElement::actsAsRole(std::string_view role) const {
    return stringValueForAttribute(NSAccessibilityRoleAttribute) == role;
}

std::shared_ptr<AccessibilityElement>
AccessibilityElement::accessibilityElementForAttribute(std::string_view attribute) const {
    const auto copied = copyElementForAttribute(attribute);
    return copied ? copied.value() : nullptr;
}

Result<std::shared_ptr<AccessibilityElement>, AXError>
AccessibilityElement::copyElementForAttribute(std::string_view attribute) const {
    const auto copied = port_.copyAttributeValue(element_, attribute);
    if (!copied) {
        return copied.error();
    }
    const auto* element = std::get_if<AXUIElementRef>(&copied.value());
    return element && *element ? elementWithAXUIElementRef(port_, *element) : nullptr;
}

std::optional<Value> AccessibilityElement::NSValueForAttribute(std::string_view attribute) const {
    const auto copied = port_.copyAttributeValue(element_, attribute);
    if (!copied) {
        return std::nullopt;
    }
    return std::visit(
        [](const auto& held) -> std::optional<Value> {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, Point> || std::is_same_v<Held, Size> ||
                          std::is_same_v<Held, Rect> || std::is_same_v<Held, Range>) {
                return held;
            } else {
                return std::nullopt;
            }
        },
        copied.value());
}

std::optional<std::string>
AccessibilityElement::stringValueForAttribute(std::string_view attribute) const {
    const auto copied = port_.copyAttributeValue(element_, attribute);
    const auto* text = copied ? std::get_if<std::string>(&copied.value()) : nullptr;
    return text ? std::optional(*text) : std::nullopt;
}

void AccessibilityElement::setNSValue(const Value& value, std::string_view forAttribute) {
    std::visit(
        [&](const auto& held) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(held)>, double>) {
                port_.setAttributeValue(element_, forAttribute, held);
            }
        },
        value);
}

void AccessibilityElement::setStringValue(std::string_view value, std::string_view forAttribute) {
    port_.setAttributeValue(element_, forAttribute, std::string(value));
}

bool AccessibilityElement::isAttributeSettable(std::string_view attribute) const {
    const auto settable = port_.isAttributeSettable(element_, attribute);
    return settable && settable.value();
}

bool AccessibilityElement::areAttributesSettable(
    std::span<const std::string_view> attributes) const {
    return std::all_of(attributes.begin(), attributes.end(),
                       [&](auto attribute) { return isAttributeSettable(attribute); });
}

void AccessibilityElement::addObserver(const std::shared_ptr<AccessibilityObserver>& observer) {
    if (observer->element()) {
        observer->uninstallObserver();
    }
    observers_.push_back(observer);
    observer->setElement(shared_from_this());
    observer->installObserver();
}

void AccessibilityElement::removeObserver(const std::shared_ptr<AccessibilityObserver>& observer) {
    // The argument may be the list's own entry, and its last owner.
    const auto kept = observer; // NOLINT(performance-unnecessary-copy-initialization)
    kept->uninstallObserver();
    std::erase(observers_, kept);
}

void AccessibilityElement::removeAllObservers() {
    const auto installed = observers_;
    for (const auto& observer : installed) {
        removeObserver(observer);
    }
}

} // namespace panewright
