#include "geometry/frame_attributes.h"

namespace panewright {

bool isFrameSettable(const std::shared_ptr<AccessibilityElement>& window) {
    return window && window->areAttributesSettable(kFrameAttributes);
}

void writeFrame(AccessibilityElement& window, const Rect& frame) {
    window.setNSValue(frame.origin(), NSAccessibilityPositionAttribute);
    window.setNSValue(frame.size(), NSAccessibilitySizeAttribute);
    window.setNSValue(frame.origin(), NSAccessibilityPositionAttribute);
}

} // namespace panewright
