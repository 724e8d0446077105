#pragma once

#include "desktop/x11/active_windows.h"
#include "desktop/x11/frame_writer.h"
#include "desktop/x11/turn_cache.h"
#include "desktop/x11/window_frame_watch.h"
#include "desktop/x11/window_hints.h"
#include "platform/accessibility.h"

namespace panewright {

/// The windows of an X session as accessibility elements. Positions and sizes are outer frames in
/// root-window pixels.
class X11Accessibility : public Accessibility {
public:
    X11Accessibility(XConnection& connection, WindowManager& manager, ActiveWindows& activeWindows,
                     const X11WorkAreas& workAreas, MainLoop& mainLoop);

    /// Holds while the connection to the X server lives.
    bool isProcessTrusted() const override { return !connection_.isLost(); }
    std::optional<bool> isProcessTrustedWithOptions(bool /*prompt*/) override {
        return isProcessTrusted();
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

    /// Waits (at most half a second) until what was written to windows has settled, and tells those
    /// who observe them.
    void settle();

private:
    struct Element;

    Result<AXValue, AXError> attributeOfSystem(std::string_view attribute);
    Result<AXValue, AXError> attributeOfApplication(ProcessId pid, std::string_view attribute);
    Result<AXValue, AXError> attributeOfWindow(xcb_window_t window, std::string_view attribute);
    std::optional<std::string> titleOf(xcb_window_t window);
    /// Nil for a window that is gone.
    std::optional<Rect> frameOf(xcb_window_t window);
    void forgetTurn();

    XConnection& connection_;
    ActiveWindows& activeWindows_;
    FrameWriter writer_;
    WindowFrameWatch frames_;
    TurnCache<std::optional<Rect>> framesOfTurn_;
    TurnCache<WindowTraits> traitsOfTurn_;
};

} // namespace panewright
