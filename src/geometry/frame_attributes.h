#pragma once

#include "accessibility/accessibility_element.h"
#include "base/geometry.h"

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace panewright {

// The orders in which a window may be asked for both: the first that is not settable ends it.
inline constexpr std::array kPositionThenSize{NSAccessibilityPositionAttribute,
                                              NSAccessibilitySizeAttribute};
inline constexpr std::array kSizeThenPosition{NSAccessibilitySizeAttribute,
                                              NSAccessibilityPositionAttribute};

/// Whether the window (null: no) can be both moved and resized.
bool isFrameSettable(const std::shared_ptr<AccessibilityElement>& window,
                     std::span<const std::string_view> order);

/// The outer frame, size read before position; nil when the window tells one of them not, or as
/// something else.
std::optional<Rect> readFrame(const AccessibilityElement& window);

/// Writes the outer frame as position, size, position. The second position is for windows that were
/// constrained at their old place while they were resized. Elements do not tell what became of a
/// write.
void writeFrame(AccessibilityElement& window, const Rect& frame);

} // namespace panewright
