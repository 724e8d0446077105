#include "geometry/frame_attributes.h"

namespace panewright {

bool isFrameSettable(const std::shared_ptr<AccessibilityElement>& window,
                     std::span<const std::string_view> order) {
    return window && window->areAttributesSettable(order);
}

std::optional<Rect> readFrame(const AccessibilityElement& window) {
    const auto size = window.NSValueForAttribute(NSAccessibilitySizeAttribute);
    const auto position = window.NSValueForAttribute(NSAccessibilityPositionAttribute);
    const auto* const sizeValue = size ? std::get_if<Size>(&*size) : nullptr;
    const auto* const positionValue = position ? std::get_if<Point>(&*position) : nullptr;
    return sizeValue && positionValue ? std::optional(makeRect(*positionValue, *sizeValue))
                                      : std::nullopt;
}

void writeFrame(AccessibilityElement& window, const Rect& frame) {
    window.setNSValue(frame.origin(), NSAccessibilityPositionAttribute);
    window.setNSValue(frame.size(), NSAccessibilitySizeAttribute);
    window.setNSValue(frame.origin(), NSAccessibilityPositionAttribute);
}

} // namespace panewright
