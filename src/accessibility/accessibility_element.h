#pragma once

#include "base/result.h"
#include "base/value.h"
#include "platform/accessibility.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

class AccessibilityObserver;

/// One UI element: the system, an application or a window. Frames are outer frames in global points
/// (origin top-left of the main display, y downwards). No failure raises: getters give nil or
/// false, setters do nothing.
class AccessibilityElement : public std::enable_shared_from_this<AccessibilityElement> {
public:
    /// Wraps the element, which must not be null. The port must outlive the wrapper.
    static std::shared_ptr<AccessibilityElement> elementWithAXUIElementRef(Accessibility& port,
                                                                           AXUIElementRef element);
    ~AccessibilityElement();

    AccessibilityElement(const AccessibilityElement&) = delete;
    AccessibilityElement& operator=(const AccessibilityElement&) = delete;

    const AXUIElementRef& element() const { return element_; }
    const std::vector<std::shared_ptr<AccessibilityObserver>>& observers() const {
        return observers_;
    }

    /// The owning process; -1 for an element that is illegal or invalid.
    ProcessId pid() const;

    /// Whether the role attribute equals `role`.
    bool actsAsRole(std::string_view role) const;

    /// A new wrapper of the element that the attribute holds; null if there is none.
    std::shared_ptr<AccessibilityElement>
    accessibilityElementForAttribute(std::string_view attribute) const;
    /// The same with the error that kept it from being read.
    Result<std::shared_ptr<AccessibilityElement>, AXError>
    copyElementForAttribute(std::string_view attribute) const;

    /// The point, size, rectangle or range that the attribute holds; nil for any other kind.
    std::optional<Value> NSValueForAttribute(std::string_view attribute) const;

    /// The text that the attribute holds; nil if it holds none.
    std::optional<std::string> stringValueForAttribute(std::string_view attribute) const;

    /// Whether the write takes effect is up to the window's owner. A number is not set.
    void setNSValue(const Value& value, std::string_view forAttribute);
    void setStringValue(std::string_view value, std::string_view forAttribute);

    bool isAttributeSettable(std::string_view attribute) const;

    /// True when every one is, so true for none.
    bool areAttributesSettable(std::span<const std::string_view> attributes) const;

    /// Installs the observer on this element. One that is installed elsewhere moves here, and stays
    /// in the other element's list.
    void addObserver(const std::shared_ptr<AccessibilityObserver>& observer);
    void removeObserver(const std::shared_ptr<AccessibilityObserver>& observer);
    void removeAllObservers();

private:
    friend class AccessibilityObserver;
    AccessibilityElement(Accessibility& port, AXUIElementRef element);

    Accessibility& port_;
    AXUIElementRef element_;
    std::vector<std::shared_ptr<AccessibilityObserver>> observers_;
};

} // namespace panewright
