#pragma once

#include "desktop/shared/windows.h"
#include "platform/accessibility.h"

#include <utility>

namespace panewright {

/// The accessibility port of a desktop that has no accessibility interface: what elements,
/// attributes, roles and errors are, over its windows.
///
/// A window that is gone answers kInvalidUIElement, what the desktop has not said yet
/// kCannotComplete, and everything kAPIDisabled without permission. A program's focused window is
/// not named before its frame is known, since nobody could place it.
class WindowsAccessibility : public Accessibility {
public:
    explicit WindowsAccessibility(Windows& windows) : windows_(windows) {}

    /// The element of a window, which is of the process.
    static AXUIElementRef elementOf(ProcessId pid, WindowId window);

    bool isProcessTrusted() const override { return windows_.isPermitted(); }
    std::optional<bool> isProcessTrustedWithOptions(bool prompt) override;
    Registration onTrusted(std::function<void()> callback) override {
        return windows_.onPermitted(std::move(callback));
    }
    AXUIElementRef createSystemWide() override;
    AXUIElementRef createApplication(ProcessId pid) override;
    Result<AXValue, AXError> copyAttributeValue(const AXUIElementRef& element,
                                                std::string_view attribute) override;
    AXError setAttributeValue(const AXUIElementRef& element, std::string_view attribute,
                              const AXValue& value) override;
    Result<bool, AXError> isAttributeSettable(const AXUIElementRef& element,
                                              std::string_view attribute) override;
    PidAnswer pid(const AXUIElementRef& element) override;
    Registration observe(ProcessId pid, const AXUIElementRef& element,
                         std::string_view notification, std::function<void()> callback) override;

private:
    struct Element;

    /// The element, for a question that needs permission.
    Result<const Element*, AXError> asked(const AXUIElementRef& element) const;
    Result<AXValue, AXError> attributeOfSystem(std::string_view attribute);
    Result<AXValue, AXError> attributeOfApplication(ProcessId pid, std::string_view attribute);
    Result<AXValue, AXError> attributeOfWindow(WindowId window, std::string_view attribute);
    AXError write(WindowId window, std::string_view attribute, const AXValue& value);

    Windows& windows_;
};

} // namespace panewright
