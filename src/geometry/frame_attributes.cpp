#include "geometry/frame_attributes.h"

#include <array>

namespace panewright {

bool isFrameSettable(const std::shared_ptr<AccessibilityElement>& window) {
    constexpr std::array kFrame{NSAccessibilityPositionAttribute, NSAccessibilitySizeAttribute};
    return window && window->areAttributesSettable(kFrame);
}

void writeFrame(AccessibilityElement& window, const Rect& frame) {
    window.setNSValue(frame.origin(), NSAccessibilityPositionAttribute);
    window.setNSValue(frame.size(), NSAccessibilitySizeAttribute);
    window.setNSValue(frame.origin(), NSAccessibilityPositionAttribute);
}

} // namespace panewright
