#pragma once

#include "desktop/shared/screen_brightness.h"
#include "platform/displays.h"
#include "platform/work_areas.h"

#include <optional>

namespace panewright {

/// How bright the main display's panel is, from 0 (black) to 1 (white): the median along the middle
/// of the strip at the top or bottom that is not work area, most of which shows the panel's ground.
/// Nil when there is no such strip, or it cannot be seen.
std::optional<double> panelBrightness(const Displays& displays, const WorkAreas& workAreas,
                                      const ScreenBrightness& brightness);

} // namespace panewright
