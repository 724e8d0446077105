#pragma once

#include "desktop/memory/memory_displays.h"
#include "platform/work_areas.h"

#include <map>

namespace panewright {

/// The whole displays of MemoryDisplays, but for those that a test puts panels on.
class MemoryWorkAreas : public WorkAreas {
public:
    explicit MemoryWorkAreas(const MemoryDisplays& displays) : displays_(displays) {}

    /// Makes this all that panels leave free of the display.
    void setWorkArea(DisplayId display, const Rect& area) { areas_[display] = area; }

    Rect workArea(DisplayId display) const override {
        const auto reserved = areas_.find(display);
        const Rect bounds = displayWithId(displays_.snapshot(), display).bounds;
        return reserved == areas_.end() || bounds == Rect{} ? bounds : reserved->second;
    }

private:
    const MemoryDisplays& displays_;
    std::map<DisplayId, Rect> areas_;
};

} // namespace panewright
