#pragma once

#include "desktop/memory/memory_windows.h"
#include "platform/accessibility.h"
#include "platform/main_loop.h"

#include <functional>

namespace panewright {

/// The windows of MemoryWindows as accessibility elements. Writes take effect at once, within the
/// window's limits; notifications come through the main loop.
class MemoryAccessibility : public Accessibility {
public:
    MemoryAccessibility(MemoryWindows& windows, MainLoop& mainLoop)
        : windows_(windows), mainLoop_(mainLoop) {}

    /// What the user has allowed; withheld, every other call answers kAPIDisabled.
    void setTrusted(bool trusted) { trusted_ = trusted; }
    /// How often the system's request for permission was shown.
    int promptsShown() const { return promptsShown_; }
    /// Called before each write to a window, as the moment in which things can happen to it.
    void setBeforeWrite(std::function<void(MemoryWindowId)> happening) {
        beforeWrite_ = std::move(happening);
    }
    /// The element of a window, as an application would answer it.
    static AXUIElementRef elementOf(MemoryWindowId window);

    bool isProcessTrusted() const override { return trusted_; }
    std::optional<bool> isProcessTrustedWithOptions(bool prompt) override;
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

    Result<AXValue, AXError> attributeOfApplication(ProcessId pid, std::string_view attribute);
    Result<AXValue, AXError> attributeOfWindow(MemoryWindowId window, std::string_view attribute);
    AXError write(MemoryWindowId window, std::string_view attribute, const AXValue& value);

    MemoryWindows& windows_;
    MainLoop& mainLoop_;
    bool trusted_ = true;
    int promptsShown_ = 0;
    std::function<void(MemoryWindowId)> beforeWrite_;
};

} // namespace panewright
