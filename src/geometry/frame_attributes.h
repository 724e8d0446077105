#pragma once

#include "accessibility/accessibility_element.h"
#include "base/geometry.h"

#include <memory>

namespace panewright {

/// Whether the window (null: no) can be both moved and resized.
bool isFrameSettable(const std::shared_ptr<AccessibilityElement>& window);

/// Writes the outer frame as position, size, position. The second position is for windows that were
/// constrained at their old place while they were resized.
void writeFrame(AccessibilityElement& window, const Rect& frame);

} // namespace panewright
