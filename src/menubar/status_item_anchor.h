#pragma once

#include "geometry/quartz_display.h"
#include "platform/status_item.h"
#include "platform/work_areas.h"
#include "ui/popover.h"

#include <optional>

namespace panewright {

/// What menu and popovers hang from: the status item; while nobody knows where that is, the top
/// right corner of the work area of the display that the user works on, of the main display if that
/// is nil.
PopoverAnchor statusItemAnchor(const StatusItem& item, const Displays& displays,
                               const WorkAreas& workAreas,
                               const std::optional<QuartzDisplay>& focused);

} // namespace panewright
