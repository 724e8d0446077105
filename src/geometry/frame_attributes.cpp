#include "geometry/frame_attributes.h"

namespace panewright {

bool isFrameSettable(const std::shared_ptr<AccessibilityElement>& window,
                     std::span<const std::string_view> order) {
    return window && window->areAttributesSettable(order);
}

void writeFrame(AccessibilityElement& window, const Rect& frame) {
    window.setNSValue(frame.origin(), NSAccessibilityPositionAttribute);
    window.setNSValue(frame.size(), NSAccessibilitySizeAttribute);
    window.setNSValue(frame.origin(), NSAccessibilityPositionAttribute);
}

} // namespace panewright
